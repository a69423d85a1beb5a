"""The package, by what its documentation promises."""
import concurrent.futures
import copy
import os
import pathlib
import pickle
import tempfile
import unittest
import warnings

import mivora

TEXT = "x=(-b+sqr(b^2-4*a*c))/(2*a)"
DATA = pathlib.Path(__file__).parents[2] / "tests/data"
# Half of a file name, how the bytes begin, whether the text is found again in them.
FORMATS = [("svg", b"<svg", True), ("png", b"\x89PNG", True), ("PDF", b"%PDF", True),
           ("bmp", b"BM", False), ("emf", b"\x01\0\0\0", True), ("wmf", b"\x01\0\0\0", True),
           ("fml", b"\xD0\xCF\x11\xE0", True)]


def copied(thing):
    return pickle.loads(pickle.dumps(thing))


class Formulas(unittest.TestCase):
    def test_every_format_on_disk_and_back(self):
        formula = mivora.Formula(TEXT)
        with tempfile.TemporaryDirectory() as folder:
            for name, start, source in FORMATS:
                with self.subTest(name):
                    path = pathlib.Path(folder) / f"formula.{name}"
                    formula.save(path)
                    data = path.read_bytes()
                    self.assertTrue(data.startswith(start), data[:8])
                    if source:
                        self.assertEqual(mivora.read(path).text, TEXT)
                        self.assertEqual(mivora.read(data).latex(), formula.latex())
                    else:
                        with self.assertRaisesRegex(mivora.FormulaError, "no formula's text"):
                            mivora.read(data)
            self.assertEqual(len(os.listdir(folder)), len(FORMATS))  # nothing is left beside them
            for name, error, words in (("formula.gif", mivora.FormulaError, "gif is none of svg, png"),
                                       ("no folder/formula.svg", OSError, "")):
                with self.assertRaisesRegex(error, words):
                    formula.save(pathlib.Path(folder) / name)

    def test_sizes(self):
        formula = mivora.Formula("a/b")
        width, height = formula.size
        self.assertTrue(0 < formula.depth < formula.axis < height and width > 5)
        self.assertGreater(mivora.Formula("a/b", size=24).size.height, 1.7 * height)
        self.assertAlmostEqual(int.from_bytes(formula.png(dpi=192)[20:24], "big"), 2 * height, delta=3)

    def test_looks(self):
        plain = mivora.Formula("f")
        for change in ({"color": "red"}, {"background": None}, {"font": "Arial"}, {"size": 20}):
            self.assertNotEqual(mivora.Formula("f", **change).svg(), plain.svg(), change)
        for change in ({"margin": 5}, {"exact": True}, {"boxes": True}, {"source": False}):
            self.assertNotEqual(plain.svg(**change), plain.svg(), change)
        self.assertIn("currentColor", mivora.Formula("a/b", color="currentColor").svg())

    def test_other_forms(self):
        formula = mivora.Formula("a/b")
        self.assertEqual(formula.latex(), r"\frac{a}{b}")
        self.assertIn("<mfrac><mi>a</mi><mi>b</mi></mfrac>", formula.mathml())
        self.assertEqual(formula.speech(), "a over b")
        self.assertEqual(formula.fortran().strip(), "(a)/(b)")
        root = formula.tree
        self.assertEqual((root["type"], root["left"]["type"]), ("NT_STANDARD", "NT_DIVISION"))
        self.assertEqual(root["left"]["right"]["symbol"], "b")
        self.assertEqual(tuple(formula.layout["rect"]), (0, 0, *formula.size))
        with self.assertRaisesRegex(mivora.FormulaError, "too deeply"):
            mivora.Formula("sqr(" * 3000 + "x" + ")" * 3000).tree

    def test_in_a_notebook(self):
        formula = mivora.Formula("a/b")
        bundle = formula._repr_mimebundle_()
        self.assertEqual(bundle["image/svg+xml"], formula.svg())
        self.assertEqual(bundle["text/latex"], r"$\frac{a}{b}$")
        self.assertEqual(list(formula._repr_mimebundle_(include={"text/plain"}).values()),
                         ["mivora.Formula('a/b')"])
        self.assertIn('alt="a over b"', bundle["text/html"])
        self.assertNotIn("text/html", mivora.Formula("a", color="currentColor")._repr_mimebundle_())
        self.assertEqual(eval(repr(formula)), formula)


STORED = mivora.Formula(TEXT).fml()
# What is refused: how the error reads, its position
REFUSED = [
    (lambda: mivora.Formula("2x", strict=True), "Error at Position 2", 2),
    (lambda: mivora.Formula("a+☃"), r"U\+2603 is not in", 3),
    (lambda: mivora.Formula("α", greek=False), r"U\+03B1", 1),
    (lambda: mivora.Formula("\ud800"), "half of a character", 1),
    (lambda: mivora.Formula("a" * 70000), "too long", None),
    (lambda: mivora.calculate("1+2?"), "", 4),
    (lambda: mivora.calculate("1/0"), "Division durch Null", None),
    (lambda: mivora.batch(["a"], "gif"), "gif is none", None),
    *((lambda options=options: mivora.Formula("a", **options).svg(), "", None)
      for options in ({"size": 3}, {"size": 0}, {"font": ""}, {"color": "reddish"})),
    *((lambda options=options: mivora.Formula("a").png(**options), "", None)
      for options in ({"dpi": 0}, {"dpi": 5000}, {"margin": -1})),
    (lambda: mivora.Formula("a", color="currentColor").png(), "", None),
    *((lambda data=data: mivora.read(data), "", None)
      for data in (b"", b"no formula", STORED[:600], STORED[:8] + b"\xff" * 2000)),
]


class Errors(unittest.TestCase):
    def test_a_text_that_is_read_in_part(self):
        with self.assertWarnsRegex(mivora.FormulaWarning, "Error at Position 2"):
            formula = mivora.Formula("2x")
        self.assertEqual(formula.latex(), "2")
        self.assertEqual((formula.error.position, formula.error.message, formula.error.excerpt),
                         (2, "Error at Position 2", "  2x\n   ^"))
        self.assertIsNone(mivora.Formula("2*x").error)
        self.assertEqual(mivora.Formula("α+π").latex(), r"\alpha+\pi")
        self.assertEqual(mivora.calculate("2*(3+4)"), 14)

    def test_refused(self):
        for number, (call, words, position) in enumerate(REFUSED):
            with self.subTest(number), self.assertRaisesRegex(mivora.FormulaError, words) as caught:
                call()
            self.assertEqual(caught.exception.position, position, number)
        for wrong in (None, b"a", 3):
            with self.assertRaises(TypeError):
                mivora.Formula(wrong)


class Many(unittest.TestCase):
    TEXTS = (DATA / "formulas.txt").read_text(encoding="utf-8").splitlines() + ["2x", "☃"]

    def test_batch_is_lazy_and_loses_nothing(self):
        asked = []
        made = mivora.batch((asked.append(text) or text for text in self.TEXTS), "svg", size=14)
        first = next(made)
        self.assertEqual((len(asked), first.text), (1, self.TEXTS[0]))
        rest = list(made)
        self.assertEqual([first.text] + [one.text for one in rest], self.TEXTS)
        self.assertEqual(first.data.decode(), mivora.Formula(self.TEXTS[0], size=14).svg())
        self.assertEqual((rest[-2].error.position, rest[-2].data is None), (2, False))
        self.assertEqual((rest[-1].error.position, rest[-1].data), (1, None))

    def test_objects_travel(self):
        formula = mivora.Formula(TEXT, size=20, color="red")
        self.assertEqual(copied(mivora.Formula("α+1")), mivora.Formula("α+1"))
        for other in copy.copy(formula), copied(formula), copied(mivora.read(formula.fml())):
            self.assertEqual(other.latex(), formula.latex())
        self.assertEqual(copied(formula).svg(), formula.svg())
        error = copied(next(mivora.batch(["2x"]))).error
        self.assertEqual((error.position, error.excerpt), (2, "  2x\n   ^"))
        self.assertIs(copied(mivora.batch), mivora.batch)
        rest = mivora.batch(["a", "b", "c"])
        next(rest)
        for left in copied(rest), rest:
            self.assertEqual([one.text for one in left], ["b", "c"])

    def test_threads_and_processes_give_the_same(self):
        expected = [one.data for one in mivora.batch(self.TEXTS, "png")]
        with concurrent.futures.ThreadPoolExecutor(4) as pool:
            for made in pool.map(pngs, [self.TEXTS] * 4):
                self.assertEqual(made, expected)
            with concurrent.futures.ProcessPoolExecutor(2) as processes:  # by fork, among threads
                for made in processes.map(pngs, [self.TEXTS] * 2):
                    self.assertEqual(made, expected)


def pngs(texts):
    return [one.data for one in mivora.batch(texts, "png")]


if __name__ == "__main__":
    warnings.simplefilter("ignore", mivora.FormulaWarning)
    unittest.main()
