#!/usr/bin/env python3
"""The product exports one class and one function: export_table_test.py LIBRARY"""
import re
import subprocess
import sys

ALLOWED = re.compile(
    r"StringToEMFFormula"
    r"|CFormulaOut::.*"
    r"|(vtable|typeinfo|typeinfo name) for CFormulaOut")

EXPECTED = {
    "StringToEMFFormula",
    "vtable for CFormulaOut",
    "typeinfo for CFormulaOut",
    "CFormulaOut::CFormulaOut()",
    "CFormulaOut::~CFormulaOut()",
    "CFormulaOut::operator=(CFormulaOut const&)",
    "CFormulaOut::FormTree(CString)",
    "CFormulaOut::DrawTree(CDC*, CRect)",
    "CFormulaOut::GetFormulaRect(CDC*)",
    "CFormulaOut::ReformatNodes()",
    "CFormulaOut::ResetTree()",
    "CFormulaOut::IsRootNodeNULL()",
    "CFormulaOut::GetTreeFormatPtr()",
    "CFormulaOut::WriteFormulaToWMF(CString)",
    "CFormulaOut::ReadFormulaFromWMF(CString)",
    "CFormulaOut::PrintDDB(CDC*)",
    "CFormulaOut::SaveTree(CArchive&)",
    "CFormulaOut::SaveToFML(CString)",
}


def exported(path):
    listing = subprocess.run(["nm", "-D", "-C", "--defined-only", path],
                             check=True, capture_output=True, text=True).stdout
    return {line.split(" ", 2)[2] for line in listing.splitlines()}


names = exported(sys.argv[1])
surplus = sorted(name for name in names if not ALLOWED.fullmatch(name))
missing = sorted(EXPECTED - names)
print(f"{len(names)} exported names")
if surplus or missing:
    sys.exit(f"surplus: {surplus}\nmissing: {missing}")
