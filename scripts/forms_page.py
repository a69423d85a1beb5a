#!/usr/bin/env python3
"""Sets our picture of every form beside Chromium's MathML and pdflatex's LaTeX.

    forms_page.py BIN DIRECTORY

BIN is the folder of programs of a build; DIRECTORY gets forms-N.png. Needs chromium, pdflatex,
pdftoppm and ImageMagick.
"""
import html
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROWS_A_SHEET = 24
LATEX_HEAD = r"\documentclass[12pt]{article}\usepackage{amsmath}\pagestyle{empty}\begin{document}"
PAGE_HEAD = """<meta charset="utf-8"><style>
body { margin: 8px; font: 13px sans-serif; width: 2130px }
table { border-collapse: collapse; width: 100% }
td, th { border-bottom: 1px solid #ccc; padding: 5px 12px; text-align: left }
td:first-child div { font: 12px monospace; width: 300px; overflow-wrap: anywhere }
math { font-size: 21px; math-style: normal }
mrow.placeholder { border: 1px solid; padding: 0.4em 0.3em }
</style><table><tr><th>formula<th>ours<th>MathML in Chromium<th>LaTeX"""


def run(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, stdout=subprocess.PIPE,
                          **options).stdout


def forms(bin_folder, work):
    """Rows of source, MathML, LaTeX, and the stored formula."""
    rows = []
    for what, name in (("sketch", "sketches.txt"), ("text", "formulas.txt")):
        folder = work / what
        folder.mkdir()
        lines = run(bin_folder / "written_forms", what, ROOT / "tests/data" / name, folder)
        for number, line in enumerate(lines.decode().splitlines()):
            source, mathml, latex, _ = line.split("\t")
            rows.append((source, mathml, latex, folder / f"{number}.fml"))
    return rows


def latex_pictures(rows, work):
    """page-NNN.png, in the order of the rows."""
    body = "\n\\newpage\n".join(rf"\noindent.$\displaystyle {row[2]}$" for row in rows)
    (work / "all.tex").write_text(f"{LATEX_HEAD}\n{body}\n\\end{{document}}\n")
    run("pdflatex", "-interaction=nonstopmode", "-halt-on-error", "all.tex", cwd=work)
    run("pdftoppm", "-r", 125, "-png", "all.pdf", "page", cwd=work)
    pages = sorted(work.glob("page-*.png"))
    for page in pages:
        # The point in front keeps pages from being empty; it is cut off again.
        run("convert", page, "-trim", "+repage", "-gravity", "west", "-chop", "4x0", "-trim",
            "+repage", page)
    return pages


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    bin_folder, target = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    target.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as name:
        work = pathlib.Path(name)
        rows = forms(bin_folder, work)
        pages = latex_pictures(rows, work)
        for sheet, first in enumerate(range(0, len(rows), ROWS_A_SHEET)):
            body = PAGE_HEAD
            for (source, mathml, _, stored), page in list(zip(rows, pages))[first:first
                                                                           + ROWS_A_SHEET]:
                picture = stored.with_suffix(".png")
                run(bin_folder / "mivora", "inspect", stored, "-o", picture)
                body += (f"<tr><td><div>{html.escape(source)}</div><td><img src='{picture}'>"
                         f"<td>{mathml}<td><img src='{page}'>")
            (work / "sheet.html").write_text(body)
            picture = target / f"forms-{sheet + 1}.png"
            run("chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                "--window-size=2150,3000", f"--screenshot={picture}", work / "sheet.html",
                stderr=subprocess.DEVNULL)
            run("convert", picture, "-trim", "+repage", "-bordercolor", "white", "-border", "8",
                "-colors", "64", picture)


if __name__ == "__main__":
    main()
