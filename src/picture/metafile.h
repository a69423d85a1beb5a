// The library's metafile as bytes.
#pragma once

#include <string>

class CBinTree;

// What CBinTree::WriteMetafile writes; with a source (UTF-8) its comment holds that in the place of
// what the last reading left. Throws CPictureFailure.
std::string MetafileBytes(CBinTree& tree, const std::string& strSource);
