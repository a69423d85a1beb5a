#!/usr/bin/env python3
"""Pictures of the command line: what is in them, how large they are, what they carry."""
import io
import json
import os
import pathlib
import random
import re
import struct
import subprocess
import sys

from PIL import Image, ImageChops, ImageFilter, ImageOps

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "compare"))

import program
from formula_list import generated
from program import FORMULAS, PICTURES, Case, run, run_bytes

# Subtree, own part and axis of the nodes of a/b, by their sizes: 13 x 17 for a letter and its gaps.
BOXES = (((0, 0, 22, 42), (18, 12, 20, 29), 20), ((0, 0, 17, 42), (0, 18, 17, 23), 20),
         ((2, 0, 15, 17), (3, 0, 13, 17), 8), ((2, 24, 15, 41), (3, 24, 13, 41), 32))

# Own parts of the fraction and what is below it
MARKS = [own for _, own, _ in BOXES[1:]]

# What other programs draw like the pixels of a resolution, and how they do, so much enlarged
SHOWN = [*(("a/b", words, 1536) for words in (
             [], ["--boxes"], ["--select", "L:2"], ["--transparent"], ["--color", "#f00", "--background", "navy"])),
         ("sqr(b^2-4*a*c)", [], 1536), ("sum(i,i=1,n)*greek a<=int(x*dx,0,1)", [], 1536),
         ("x+x+x+x+x+x-str(xy)", [], 288)]
RASTERIZERS = {
    "svg": lambda times: ["rsvg-convert", f"--zoom={times}", "x.svg", "-o", "y.png"],
    "pdf": lambda times: ["pdftocairo", "-singlefile", "-png", "-transp", "-r", f"{96 * times}", "x.pdf", "y"]}


def box_bars():
    """What the boxes of a/b are drawn with: a colour with its opacity, left, top, right and bottom."""
    for subtree, own, axis in BOXES:
        for colour, opacity, (left, top, right, bottom) in ("#666666", 0.5, subtree), ("#0033ff", 0.8, own):
            yield colour, opacity, (left, top, right, top + 0.5)
            yield colour, opacity, (left, bottom - 0.5, right, bottom)
            yield colour, opacity, (left, top + 0.5, left + 0.5, bottom - 0.5)
            yield colour, opacity, (right - 0.5, top + 0.5, right, bottom - 0.5)
        yield "#ff0000", 0.6, (subtree[0] - 2, axis - 0.25, subtree[2] + 2, axis + 0.25)


def decoded(data):
    return Image.open(io.BytesIO(data))


class PictureCase(Case):
    def measured(self, text, *words):
        return json.loads(self.told("measure", text, "--json", *words))

    def size_in_pixels(self, text):
        """Of the formula's rectangle."""
        return tuple(int(n) for n in self.told("measure", text).split("\t")[0].split()[2:])

    def image(self, *words):
        return decoded(self.picture(*words)[0]).convert("RGBA")

    def colours(self, *words):
        return list(self.image(*words).getdata())


class Pictures(PictureCase):
    def test_size_in_every_resolution(self):
        width, height = self.size_in_pixels("a/b")
        self.assertEqual(self.picture("a/b")[1], "%d %d\n" % (22 * width, 22 * height))
        for dpi, metre in (96, 3780), (192, 7559), (300, 11811):
            words = "a/b", "--dpi", str(dpi)
            size = -(-width * dpi // 96), -(-height * dpi // 96)
            png = decoded(self.picture(*words)[0])
            self.assertEqual((png.size, png.info["dpi"]), (size, (metre * 0.0254,) * 2))
            dark = sum(png.convert("L").histogram()[:100])
            self.assertTrue(20 * (dpi / 96) ** 2 < dark < size[0] * size[1] / 4, dark)
            data = self.picture(*words, name="x.bmp")[0]
            self.assertEqual(struct.unpack_from("<2xI4xI3i12x2i", data), (len(data), 54, 40, *size, metre, metre))
            self.assertTrue(decoded(data).convert("L").tobytes() == png.tobytes())

    def test_selection_and_grey(self):
        """The colours of the system: highlight 0078D7, its text white, grey text 6D6D6D."""
        highlight, grey = (0x00, 0x78, 0xD7, 255), (0x6D, 0x6D, 0x6D, 255)
        plain, root, node, subtree, grayed = (self.colours("a/b", *words) for words in (
            [], ["--select", ":1"], ["--select", "L:1"], ["--select", "L:2"], ["--grayed"]))
        self.assertEqual((plain.count(highlight), grayed.count(highlight)), (0, 0))
        self.assertTrue(0 < root.count(highlight) < node.count(highlight) < subtree.count(highlight) / 2)
        self.assertGreater(grayed.count(grey), 10)
        self.assertNotIn((0, 0, 0, 255), grayed)

    def test_boxes_and_marks(self):
        """Four times as large all lines of the boxes are whole pixels."""
        expected = self.image("a/b", "--dpi", "384")
        for colour, opacity, bar in box_bars():
            left, top, right, bottom = bar = [round(4 * n) for n in bar]
            expected.paste(colour, bar, Image.new("L", (right - left, bottom - top), round(255 * opacity)))
        changes = ImageChops.difference(expected, self.image("a/b", "--boxes", "--dpi", "384"))
        self.assertLess(max(high for _, high in changes.getextrema()), 4)
        plain, marked = self.image("a/b"), self.image("a/b", "--select", "L:2")
        for mark in MARKS:
            self.assertNotIn((0, 0, 0), ImageChops.difference(plain, marked).crop(mark).convert("RGB").getdata())
            marked.paste(plain.crop(mark), mark)
        self.assertEqual(marked, plain)

    def test_other_programs_show_the_same_pixels(self):
        """But for what fitting to the pixels moves, a pixel at most."""
        for name, rasterizer in RASTERIZERS.items():
            for text, words, dpi in SHOWN:
                with self.subTest(name=name, text=text, words=words):
                    self.picture(text, "--exact", *words, name=f"x.{name}")
                    subprocess.run(rasterizer(dpi // 96), cwd=self.folder, check=True)
                    theirs = Image.open(self.folder / "y.png").convert("RGBA")
                    ours = self.image(text, "--exact", "--dpi", str(dpi), *words).crop((0, 0, *theirs.size))
                    darkest, brightest = (theirs.filter(of_pixels(3)) for of_pixels in
                                          (ImageFilter.MinFilter, ImageFilter.MaxFilter))
                    for far in ImageChops.subtract(ours, brightest), ImageChops.subtract(darkest, ours):
                        self.assertLess(max(high for _, high in far.getextrema()), 8)

    def test_same_input_gives_same_bytes(self):
        """On standard output, and in processes of their own behind other formulas, in another layout
        of the memory."""
        text = "sum(mark(x,i,2),i=1,n)=(n*(n+1))/2"
        lines = self.folder / "lines.txt"
        lines.write_text(FORMULAS.read_text() + text)
        for name in [*PICTURES, "fml"]:
            with self.subTest(name):
                made = []
                for padding in "", "x" * 5000:
                    folder = self.folder / (name + padding[:1])
                    told = self.told("batch", lines, "-d", folder, "--format", name,
                                     env=dict(os.environ, MIVORA_TEST_PADDING=padding))
                    made.append([path.read_bytes() for path in sorted(folder.iterdir())])
                    self.assertEqual(told, f"{len(made[0])} done, 0 with syntax errors, 0 failed\n")
                self.assertTrue(made[0] == made[1])
                self.assertTrue(self.picture(text, name="x." + name)[0] == made[0][-1])
                if name != "fml":
                    piped = run_bytes("render", text, "-o", "-", "--format", name)
                    self.assertTrue(piped == (0, made[0][-1], ""))

    def test_names_of_formats(self):
        self.assertEqual(self.picture("a", name="x.PNG")[0][1:4], b"PNG")
        self.assertEqual(self.picture("a", name="x.WMF")[0][40:44], b" EMF")
        self.assertEqual(self.picture("a", name="x.FML")[0][:4], b"\xd0\xcf\x11\xe0")
        self.assertEqual(self.picture("a", "--format", "png", name="x.dat")[0][1:4], b"PNG")

    def test_a_failure_leaves_the_old_file(self):
        path = self.folder / "x.png"
        path.write_bytes(b"old")
        status, _, err = run("render", "a+" * 5000 + "a", "-o", path, "--dpi", "2400")
        self.assertEqual((status, path.read_bytes()), (1, b"old"))
        self.assertIn("pixels long", err)

    def test_no_ink_is_cut(self):
        """A larger canvas shows the same pixels in its middle, and nothing around them."""
        texts = ["f(x,y)", "f", "j^j", "str('f')"] + [generated(random.Random(seed), 1 + seed % 4)
                                                      for seed in range(1000)]
        for words in [], ["--dpi", "144"]:
            folders = [self.folder / ("%s%d" % (name, len(words))) for name in "ab"]
            for folder, more in zip(folders, ([], ["--margin", "12"])):
                run("batch", "-", "-d", folder, "--format", "png", *words, *more,
                    stdin="\n".join(texts).encode())
            for path in folders[0].iterdir():  # not all formulas have an extent
                small, large = (Image.open(folder / path.name).convert("RGB") for folder in folders)
                text = texts[int(path.stem) - 1]
                self.assertEqual(large.size, (small.width + 24, small.height + 24), text)
                self.assertTrue(ImageOps.expand(small, 12, "white").tobytes() == large.tobytes(), text)

    def test_margins_and_the_bare_rectangle(self):
        width, height = self.size_in_pixels("f")
        for words, grown in (([], (0, 1)), (["--exact"], (0, 0)), (["--margin", "5"], (10, 11)),
                             (["--exact", "--margin", "5"], (10, 10))):  # the foot of f takes a line
            self.assertEqual(self.image("f", *words).size, (width + grown[0], height + grown[1]))

    def test_lines_are_sharp(self):
        """Bars are whole rows of pure ink in every resolution."""
        for dpi in 96, 120, 144, 150, 192, 300:
            image = self.image("a/(b+c+d)", "--dpi", str(dpi)).convert("L")
            rows = [image.crop((0, y, image.width, y + 1)).tobytes() for y in range(image.height)]
            bars = [row for row in rows if sum(value < 255 for value in row) > 0.8 * len(row)]
            self.assertEqual(len(bars), max(1, round(dpi / 96)), dpi)
            self.assertLessEqual(set(b"".join(bars)), {0, 255}, dpi)

    def test_colours_and_clear_ground(self):
        red = (255, 0, 0)
        seen = set(self.colours("a/b", "--color", "#f00", "--background", "navy"))
        self.assertLessEqual({(*red, 255), (0, 0, 128, 255)}, seen)
        self.assertFalse({(0, 0, 0, 255), (255, 255, 255, 255)} & seen)
        seen = set(self.colours("a/b", "--color", "Red", "--transparent"))
        self.assertLessEqual({0, 255}, {pixel[3] for pixel in seen})
        self.assertEqual({pixel[:3] for pixel in seen if pixel[3]}, {red})
        bmp, _ = self.picture("a/b", "--transparent", name="x.bmp")
        self.assertEqual((bmp[14], bmp[122 + 3]), (108, 0))  # a head that knows opacity

    def test_size_and_face(self):
        plain = self.size_in_pixels("a+1")
        same, large, other = (self.image("a+1", *words).size for words in (
            ["--size", "12"], ["--size", "24"], ["--font", "Arial"]))
        self.assertEqual(same, plain)
        self.assertGreater(large[0], 1.5 * plain[0])  # the gaps do not grow
        self.assertAlmostEqual(large[1], 2 * plain[1], delta=4)
        self.assertNotEqual(other[0], plain[0])
        told = self.picture("a+1", "--size", "24", name="x.wmf")[1]
        self.assertEqual(told, "%d %d\n" % (22 * large[0], 22 * large[1]))
        self.assertIn("Arial".encode("utf-16le"), self.picture("a", "--font", "Arial", name="x.wmf")[0])

    def test_size_as_json(self):
        for text in "a", "a+b", "a/b", "mark(x,i,2)", "greek a", "f":
            told = self.measured(text)
            self.assertEqual(json.loads(self.picture(text, "--json")[1]), told)
            self.assertEqual((told["width"], told["height"]), self.image(text).size)
            self.assertEqual(told["em"]["size"], 16)
            self.assertAlmostEqual(told["em"]["depth"], told["depth"] / 16, delta=0.0006)
            self.assertAlmostEqual(self.measured(text, "--dpi", "192")["depth"], 2 * told["depth"], delta=1)
        letters = self.measured("a")
        self.assertEqual((letters["axis"], letters["depth"]), (8, 3))  # a line of 14 above, 3 below


class Svg(PictureCase):
    # The names that the web began with
    COLOURS = {"black": "#000000", "silver": "#c0c0c0", "gray": "#808080", "white": "#ffffff", "maroon": "#800000",
               "red": "#ff0000", "purple": "#800080", "fuchsia": "#ff00ff", "green": "#008000", "lime": "#00ff00",
               "olive": "#808000", "yellow": "#ffff00", "navy": "#000080", "blue": "#0000ff", "teal": "#008080",
               "aqua": "#00ffff", "#123": "#112233"}

    def svg(self, *words):
        return self.picture(*words, name="x.svg")[0].decode()

    def test_size_role_title_and_place_in_a_line(self):
        width, height = self.size_in_pixels("a/b")
        depth = self.measured("a/b")["em"]["depth"]
        self.assertIn(f' width="{width}" height="{height}" viewBox="0 0 {width} {height}" role="img" '
                      f'style="vertical-align:{-depth:g}em">\n<title', self.svg("a/b"))

    def test_names_are_used_and_mean_the_same_everywhere(self):
        shapes = {}
        for text in "a/b", "x+y", "x+x+x+x+x+x", "a+a+a+a+a+b+b+b+b+b", "w" * 9 + "+" + "v" * 9:
            svg = self.svg(text)
            named = dict(re.findall(r'<path id="(\w+)" d="(.*?)"', svg))
            self.assertEqual(set(named), set(re.findall(r'href="#(\w+)"', svg)), text)
            for name, shape in named.items():
                self.assertEqual(shapes.setdefault(name, shape), shape)
        self.assertGreater(len(shapes), 4)

    def test_colours(self):
        for words, fills in (([], ["#ffffff"]), (["--transparent"], []),
                             *((["--background", name], [fill]) for name, fill in self.COLOURS.items())):
            self.assertEqual(re.findall('<rect .*fill="(.*?)"', self.svg("a/b", *words)), fills)
        svg = self.svg("a/b", "--color", "currentColor")
        self.assertIn('<g transform="scale(.01)" fill="currentColor">', svg)
        self.assertNotIn("<path fill", svg)


class Pdf(PictureCase):
    def test_what_others_find(self):
        def found(text, *command):
            self.picture(text, name="x.pdf")
            return subprocess.run(command, cwd=self.folder, capture_output=True, check=True,
                                  text=True).stdout

        for text, signs in (("sqr(x)", "√x"), ("greek a+greek O", "α+Ο"), ("a*(b+c)", "a(b+c)"),
                            ("a<=b", "a≤b"), ("sum(x,i=1,n)", "∑ni=1x"), ("x^2-y", "x2−y"),
                            ("sin(x)/2", "sinx2")):
            self.assertEqual("".join(found(text, "pdftotext", "-raw", "x.pdf", "-").split()), signs)
        self.assertRegex(found("a/b", "pdfinfo", "x.pdf"),
                         r"(?s)Title: +a over b.*Subject: +a/b.*Tagged: +yes.*Page size: +16.5 x 31.5 pts")
        self.assertIn("Formula", found("a/b", "pdfinfo", "-struct", "x.pdf"))


class Source(PictureCase):
    CARRIERS = [name for name in PICTURES if name in ("svg", "png", "pdf")]
    TEXTS = ["a/b", "  a   b  ", "'", "''", "a\\x41\\", "<&>\"'", "a\tb\rc\nd", "(((", ")\\(", "%00\x7f",
             "ÿ€äß", "\x01\x1f", "2" + "x" * 59999,
             "".join(bytes([n]).decode("cp1252", "ignore") for n in range(1, 256))]
    CHECKERS = {"png": ["pngcheck", "-q"], "svg": ["xmllint", "--noout"], "pdf": ["qpdf", "--check"]}

    def source_of(self, name):
        status, out, err = run("comment", self.folder / name)
        return out[:-1] if status == 0 else err

    def draw(self, text, name, *words):
        """From standard input: what a word cannot hold comes through too."""
        return self.picture("-", *words, name=name, stdin=text.encode() + b"\n")[0]

    def test_comes_back(self):
        """Also, other programs find no fault with the files."""
        for name in [*self.CARRIERS, "wmf"]:
            file, checker = "x." + name, self.CHECKERS.get(name)
            for text in [*self.TEXTS, *["a\0b"] * (name != "wmf")]:
                with self.subTest(name=name, text=text[:20]):
                    self.draw(text, file, *["--embed"] * (name == "wmf"))
                    self.assertEqual(self.source_of(file), text)
                    if checker:
                        done = subprocess.run([*checker, self.folder / file], capture_output=True, check=False)
                        self.assertEqual((done.returncode, done.stderr), (0, b""), done.stdout)
        status, _, err = run("render", "-", "-o", self.folder / "x.wmf", "--embed", stdin=b"a\0b")
        self.assertEqual(status, 1)
        self.assertIn("NUL", err)

    def test_left_out(self):
        for name in self.CARRIERS:
            self.assertNotIn(b"a/b", self.draw("a/b", "x." + name, "--no-embed"))
            self.assertIn("no formula's text is in this picture", self.source_of("x." + name))
        for name in "wmf", "fml", "bmp":
            self.draw("a/b", "x." + name)
        run("inspect", self.folder / "x.fml", "-o", self.folder / "y.wmf")
        self.assertEqual((self.source_of("x.wmf"), self.source_of("y.wmf")), ("", ""))  # the bare tag
        self.assertIn("a .bmp holds no text", self.source_of("x.bmp"))

    def test_compressed_pdf(self):
        self.draw("a/b", "x.pdf")
        subprocess.run(["qpdf", "--object-streams=generate", "x.pdf", "y.pdf"], cwd=self.folder, check=True)
        self.assertNotIn(b"Subject", (self.folder / "y.pdf").read_bytes())
        self.assertEqual(self.source_of("y.pdf"), "a/b")

    def test_no_metafile(self):
        (self.folder / "x.wmf").write_bytes(b"nothing of the kind")
        self.assertIn("不能解析该文件!", self.source_of("x.wmf"))


class Manifest(PictureCase):
    def test_a_line_for_each_formula(self):
        for jobs in "1", "2":
            out, file = self.folder / jobs, self.folder / ("m" + jobs)
            run("batch", "-", "-d", out, "--format", "png", "--jobs", jobs, "--manifest", file,
                stdin='a/b\n2x\n\n中\nf\n'.encode())
            told = [json.loads(line) for line in file.read_text(encoding="utf-8").splitlines()]
            self.assertEqual([(one["line"], one["text"], bool(one["file"])) for one in told],
                             [(1, "a/b", True), (2, "2x", True), (3, "", True), (4, "中", False), (5, "f", True)])
            self.assertIn("Position 2", told[1]["error"])
            self.assertIn("U+4E2D", told[3]["error"])
            for one in told:
                self.assertEqual(list(one), ["line", "file", "text", "size", "depth", "error"])
                if one["file"]:
                    self.assertEqual(tuple(one["size"]), decoded((out / one["file"]).read_bytes()).size)
            self.assertEqual(told[4]["depth"], self.measured("f")["depth"])

    def test_makes_the_folders(self):
        self.told("batch", "-", "-d", f"{self.folder}/new/deep/", stdin=b"a\n")
        self.assertTrue((self.folder / "new/deep/000001.wmf").exists())

    def test_stops_at_once(self):
        """One message where nothing can be written, and no picture."""
        blocked = self.folder / "file"
        blocked.write_text("")
        for words in ["-d", blocked], ["-d", blocked / "x"], \
                ["-d", self.folder, "--manifest", self.folder / "no/m"]:
            status, out, err = run("batch", "-", *words, stdin=b"a\n" * 100)
            self.assertEqual((status, out, err.count("\n")), (1, "", 1), err)


if __name__ == "__main__":
    program.main()
