#!/usr/bin/env python3
"""The C interface exports what its header declares, and the page of reference is the header's:
c_interface_test.py LIBRARY"""
import pathlib
import re
import subprocess
import sys

import binary

ROOT = pathlib.Path(__file__).parents[2]
declared = set(re.findall(r"\b(mivora_\w+)\(", (ROOT / "include/mivora/mivora_c.h").read_text()))
assert len(declared) >= 10, declared
binary.check_exports(sys.argv[1], declared)
subprocess.run([sys.executable, ROOT / "scripts/c_reference.py", "--check"], check=True)
