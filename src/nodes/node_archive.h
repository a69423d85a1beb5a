// The pieces of which the records of nodes are made, for SerializeNode of the classes.
#pragma once

#include <memory>

#include "nodes/node.h"

// A type name and, unless it is empty, a record. What is loaded is the caller's, and null where no
// child was stored; CArchiveException where the archive is damaged.
void StoreChild(CArchive& ar, CBinTree* pTree, CNode* pChild);
std::unique_ptr<CNode> LoadChild(CArchive& ar, CBinTree* pTree);

// Reads the record of a node that is there, one level down. CArchiveException for a level that no
// text makes.
void LoadRecord(CNode& node, CArchive& ar, CBinTree* pTree);

// What every record holds behind the children.
void StoreCommon(const CNode& node, CArchive& ar);
void LoadCommon(CNode& node, CArchive& ar);

// Put a loaded child in the place of the one that is there, which is deleted.
void LinkLoadedLeft(CNode& node, std::unique_ptr<CNode> pLeft);
void LinkLoadedRight(CNode& node, std::unique_ptr<CNode> pRight);
