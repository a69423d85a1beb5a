// The library's metafile as bytes, and the text that such bytes carry.
#pragma once

#include <optional>
#include <string>
#include <string_view>

class CBinTree;

// What CBinTree::WriteMetafile writes; with a source (UTF-8) its comment holds that in the place of
// what the last reading left. Throws CPictureFailure.
std::string MetafileBytes(CBinTree& tree, const std::string& strSource);

// The text in the comment of a metafile, as UTF-8; none where there is none of ours.
std::optional<std::string> MetafileSource(std::string_view bytes);
