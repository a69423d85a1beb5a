#!/usr/bin/env python3
"""Runs a notebook as its readers do, and looks for formulas in what it shows:

    notebook_test.py NOTEBOOK.ipynb
"""
import sys

import nbformat
from nbconvert.preprocessors import ExecutePreprocessor

notebook = nbformat.read(sys.argv[1], as_version=4)
ExecutePreprocessor(timeout=120, kernel_name="python3").preprocess(notebook, {})
outputs = [output for cell in notebook.cells if cell.cell_type == "code" for output in cell.outputs]
shown = [output.data for output in outputs if "data" in output]
pictures = [data for data in shown if data.get("image/svg+xml", "").startswith("<svg")]
assert len(pictures) >= 2, outputs
assert all(data["text/latex"].startswith("$") for data in pictures)
assert all(data["text/html"].startswith("<img") for data in pictures)
assert any("(True, " in data.get("text/plain", "") for data in shown), "what is read is not equal"
assert any("2x" in output.get("text", "") and "^" in output.get("text", "") for output in outputs)
print(f"{len(pictures)} formulas shown")
