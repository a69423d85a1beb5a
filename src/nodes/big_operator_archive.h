// The archive form of sums, products and integrals.
#pragma once

#include "nodes/node.h"

// A record without a font, and behind the common items *pKind if it is not null. The left record is
// read into the range that the constructor made.
void SerializeBigOperator(CNode& node, CArchive& ar, CBinTree* pTree, int* pKind);
