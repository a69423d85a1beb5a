#!/usr/bin/env python3
"""The product exports one class and one function:
export_table_test.py LIBRARY OBJECT... (the object files that the class is compiled to)"""
import re
import subprocess
import sys

import binary

FUNCTION = "StringToEMFFormula"
# Members, virtual table, type information, its name; as the linker knows them.
CLASS = re.compile(r"_ZNK?11CFormulaOut.*|_ZT[VIS]11CFormulaOut")

EXPECTED = {
    "vtable for CFormulaOut",
    "typeinfo for CFormulaOut",
    "typeinfo name for CFormulaOut",
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


def demangled(names):
    return set(subprocess.run(["c++filt", *names], check=True, capture_output=True,
                              text=True).stdout.splitlines())


library, objects = sys.argv[1], sys.argv[2:]
defined = {name for path in objects for name in binary.defined_names(path)}
wanted = {name for name in defined if CLASS.fullmatch(name)} | {FUNCTION}
names = binary.exported_names(library)
print(f"{len(names)} exported names")
if names != wanted:
    sys.exit(f"surplus: {sorted(names - wanted)}\nmissing: {sorted(wanted - names)}")

# What the headers promise has to be among the compiled.
missing = EXPECTED - demangled(names)
if missing:
    sys.exit(f"missing: {sorted(missing)}")
