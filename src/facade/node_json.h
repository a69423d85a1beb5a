// Nodes of a tree as JSON.
#pragma once

#include <functional>
#include <string>

#include "platform/base/cstring.h"

class CNode;

// A text of the library as a JSON string of ASCII: other bytes are \xNN, as in the form of a tree.
std::string JsonText(const CString& strText);

// The fields "type", "kind" (of the types that the form of a tree shows it for) and "symbol".
std::string SignAsJson(const CNode& node);

// Objects in one another, of any depth: the fields that are asked for, then "left" and "right",
// which are null where there is no node. fields is asked once for each node, in the order in which
// they stand: a node, its left side, its right side.
std::string NodesAsJson(const CNode* pRoot, const std::function<std::string(const CNode&)>& fields);

// The tree alone, as a parse left it: type, kind, symbol, and "greek" of letters in the face
// "Symbol".
std::string TreeAsJson(const CNode* pRoot);
