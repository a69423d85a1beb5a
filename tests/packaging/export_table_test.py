#!/usr/bin/env python3
"""The product exports one class and one function:
export_table_test.py LIBRARY OBJECT... (the object files that the class is compiled to)"""
import re
import sys

import binary

FUNCTION = "StringToEMFFormula"
# Members, virtual table, type information, its name; as the linker knows them.
CLASS = re.compile(r"_ZNK?11CFormulaOut.*|_ZT[VIS]11CFormulaOut")

EXPECTED = {what + " for CFormulaOut" for what in ("vtable", "typeinfo", "typeinfo name")} | {
    "CFormulaOut::" + member for member in (
        "CFormulaOut()", "~CFormulaOut()", "operator=(CFormulaOut const&)", "FormTree(CString)",
        "DrawTree(CDC*, CRect)", "GetFormulaRect(CDC*)", "ReformatNodes()", "ResetTree()", "IsRootNodeNULL()",
        "GetTreeFormatPtr()", "WriteFormulaToWMF(CString)", "ReadFormulaFromWMF(CString)", "PrintDDB(CDC*)",
        "SaveTree(CArchive&)", "SaveToFML(CString)")}

library, objects = sys.argv[1], sys.argv[2:]
defined = {name for path in objects for name in binary.defined_names(path)}
binary.check_exports(library, {name for name in defined if CLASS.fullmatch(name)} | {FUNCTION})
# What the headers promise has to be among the compiled.
missing = EXPECTED - set(binary.lines_of("c++filt", *binary.exported_names(library)))
if missing:
    sys.exit(f"missing: {sorted(missing)}")
