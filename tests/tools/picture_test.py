#!/usr/bin/env python3
"""Pictures of the command line: what is in them, how large they are, what they carry."""
import json
import math
import pathlib
import random
import re
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "compare"))

import program
from formula_list import Generator
from picture_files import inside, pdf_content, pixels_of_png, png_chunks, polygons
from program import PICTURES, Case, run, run_bytes

SVG = "{http://www.w3.org/2000/svg}"
WHITE = (255, 255, 255, 255)

# Subtree, own part and axis of the nodes of a/b, by their sizes: 13 x 17 for a letter and its gaps.
BOXES = (((0, 0, 22, 42), (18, 12, 20, 29), 20), ((0, 0, 17, 42), (0, 18, 17, 23), 20),
         ((2, 0, 15, 17), (3, 0, 13, 17), 8), ((2, 24, 15, 41), (3, 24, 13, 41), 32))

# Own parts of the fraction and what is below it: left, top, width and height.
MARKS = (0, 18, 17, 5), (3, 0, 10, 17), (3, 24, 10, 17)


def box_bars():
    """What the boxes of a/b are drawn with: a colour with its opacity, left, top, width and height."""
    for subtree, own, axis in BOXES:
        for colour, (left, top, right, bottom) in (("#666666", "0.5"), subtree), (("#0033ff", "0.8"), own):
            yield colour, (left, top, right - left, 0.5)
            yield colour, (left, bottom - 0.5, right - left, 0.5)
            yield colour, (left, top + 0.5, 0.5, bottom - top - 1)
            yield colour, (right - 0.5, top + 0.5, 0.5, bottom - top - 1)
        yield ("#ff0000", "0.6"), (subtree[0] - 2, axis - 0.25, subtree[2] - subtree[0] + 4, 0.5)


class PictureCase(Case):
    def measured(self, text, *words):
        return json.loads(self.told("measure", text, "--json", *words))

    def size_in_pixels(self, text):
        """Of the formula's rectangle."""
        return tuple(int(n) for n in self.told("measure", text).split("\t")[0].split()[2:])

    def pixels(self, *words):
        """Width, height and rows of pixels."""
        return pixels_of_png(self.picture(*words)[0])

    def colours(self, *words):
        return [pixel for row in self.pixels(*words)[2] for pixel in row]


class Pictures(PictureCase):
    MANY = 1000  # random formulas

    def test_size_in_every_resolution(self):
        width, height = self.size_in_pixels("a/b")
        self.assertEqual(self.picture("a/b")[1], "%d %d\n" % (22 * width, 22 * height))
        for dpi in 96, 192, 300:
            words = "a/b", "--dpi", str(dpi)
            size = -(-width * dpi // 96), -(-height * dpi // 96)
            got = self.pixels(*words)
            self.assertEqual(got[:2], size)
            dark = sum(max(pixel[:3]) < 100 for row in got[2] for pixel in row)
            self.assertTrue(20 * (dpi / 96) ** 2 < dark < got[0] * got[1] / 4, dark)
            metre = {96: 3780, 192: 7559, 300: 11811}[dpi]
            data = self.picture(*words, name="x.bmp")[0]
            self.assertEqual(struct.unpack_from("<2xI4xI3i12x2i", data), (len(data), 54, 40, *size, metre, metre))
            pixels = [(red, green, blue, 255) for blue, green, red, _ in struct.iter_unpack("4B", data[54:])]
            self.assertTrue(pixels == [pixel for row in got[2][::-1] for pixel in row])  # from the bottom up
            self.assertEqual(dict(png_chunks(self.picture(*words)[0]))[b"pHYs"],
                             struct.pack(">IIB", metre, metre, 1))

    def test_selection_and_grey(self):
        """The colours of the system: highlight 0078D7, its text white, grey text 6D6D6D."""
        highlight, grey = (0x00, 0x78, 0xD7, 255), (0x6D, 0x6D, 0x6D, 255)
        plain, root, node, subtree, grayed = (self.colours("a/b", *words) for words in (
            [], ["--select", ":1"], ["--select", "L:1"], ["--select", "L:2"], ["--grayed"]))
        self.assertEqual((plain.count(highlight), grayed.count(highlight)), (0, 0))
        self.assertTrue(0 < root.count(highlight) < node.count(highlight) < subtree.count(highlight) / 2)
        self.assertGreater(grayed.count(grey), 10)
        self.assertNotIn((0, 0, 0, 255), grayed)

    def test_boxes_are_drawn_over_the_same_picture(self):
        """Twice as large their lines are one pixel wide; those of axes take the halves of two."""
        (width, height, plain), (*size, boxes) = (
            self.pixels("a/b", "--dpi", "192", *words) for words in ([], ["--boxes"]))
        self.assertEqual([width, height], size)
        changed = {(x, y) for y in range(height) for x in range(width) if plain[y][x] != boxes[y][x]}
        covered = {(x, y) for _, (left, top, wide, high) in box_bars()
                   for y in range(math.floor(2 * top), math.ceil(2 * (top + high)))
                   for x in range(max(math.floor(2 * left), 0), min(math.ceil(2 * (left + wide)), width))}
        self.assertEqual(changed, covered)

    def test_same_input_gives_same_bytes(self):
        """In another folder, on standard output, in a process of its own behind other formulas."""
        text = "sum(mark(x,i,2),i=1,n)=(n*(n+1))/2"
        lines = self.folder / "lines.txt"
        lines.write_text("a/b\nsqr(x)\n%s\n" % text)
        for name in PICTURES:
            with self.subTest(name), tempfile.TemporaryDirectory() as other:
                once = self.picture(text, name="x." + name)[0]
                self.told("render", text, "-o", "y." + name, cwd=other)
                self.told("batch", lines, "-d", other, "--format", name)
                for file in "y.", "000003.":
                    self.assertTrue((pathlib.Path(other) / (file + name)).read_bytes() == once, file)
                sized = self.picture("a/b", "--size", "15", name="x." + name)[0]
                piped = run_bytes("render", "a/b", "--size", "15", "-o", "-", "--format", name)
                self.assertTrue(piped == (0, sized, ""), name)

    def test_names_of_formats(self):
        self.assertTrue(self.picture("a", name="x.PNG")[0].startswith(b"\x89PNG"))
        self.assertEqual(self.picture("a", name="x.WMF")[0][40:44], b" EMF")
        self.assertEqual(self.picture("a", "--format", "png", name="x.dat")[0][1:4], b"PNG")

    def test_a_failure_leaves_the_old_file(self):
        path = self.folder / "x.png"
        path.write_bytes(b"old")
        status, _, err = run("render", "a+" * 5000 + "a", "-o", path, "--dpi", "2400")
        self.assertEqual((status, path.read_bytes()), (1, b"old"))
        self.assertIn("pixels long", err)

    def test_no_ink_is_cut(self):
        """A larger canvas shows the same pixels in its middle, and nothing around them."""
        texts = ["f(x,y)", "f", "j^j", "str('f')"] + [Generator(seed).formula(1 + seed % 4)
                                                      for seed in range(self.MANY)]
        margin = 12
        for words in [], ["--dpi", "144"]:
            folders = [self.folder / ("%s%d" % (name, len(words))) for name in "ab"]
            for folder, more in zip(folders, ([], ["--margin", str(margin)])):
                run("batch", "-", "-d", folder, "--format", "png", *words, *more,
                    stdin="\n".join(texts).encode())
            for small in folders[0].iterdir():  # not all formulas have an extent
                width, height, rows = pixels_of_png(small.read_bytes())
                large = pixels_of_png((folders[1] / small.name).read_bytes())
                side = [WHITE] * margin
                around = [[WHITE] * (width + 2 * margin)] * margin
                text = texts[int(small.stem) - 1]
                self.assertEqual(large[:2], (width + 2 * margin, height + 2 * margin), text)
                self.assertTrue(large[2] == around + [side + row + side for row in rows] + around, text)

    def test_margins_and_the_bare_rectangle(self):
        width, height = self.size_in_pixels("f")
        for words, grown in (([], (0, 1)), (["--exact"], (0, 0)), (["--margin", "5"], (10, 11)),
                             (["--exact", "--margin", "5"], (10, 10))):  # the foot of f takes a line
            self.assertEqual(self.pixels("f", *words)[:2], (width + grown[0], height + grown[1]))

    def test_lines_are_sharp(self):
        """Bars are whole rows of pure ink in every resolution."""
        for dpi in 96, 120, 144, 150, 192, 300:
            width, _, rows = self.pixels("a/(b+c+d)", "--dpi", str(dpi))
            bars = [row for row in rows if sum(pixel[0] < 255 for pixel in row) > 0.8 * width]
            self.assertEqual(len(bars), max(1, round(dpi / 96)), dpi)
            self.assertLessEqual({pixel[0] for row in bars for pixel in row}, {0, 255}, dpi)

    def test_colours_and_clear_ground(self):
        red = (255, 0, 0)
        seen = set(self.colours("a/b", "--color", "#f00", "--background", "navy"))
        self.assertLessEqual({(*red, 255), (0, 0, 128, 255)}, seen)
        self.assertFalse({(0, 0, 0, 255), WHITE} & seen)
        seen = set(self.colours("a/b", "--color", "Red", "--transparent"))
        self.assertLessEqual({0, 255}, {pixel[3] for pixel in seen})
        self.assertEqual({pixel[:3] for pixel in seen if pixel[3]}, {red})
        bmp, _ = self.picture("a/b", "--transparent", name="x.bmp")
        self.assertEqual((bmp[14], bmp[122 + 3]), (108, 0))  # a head that knows opacity

    def test_size_and_face(self):
        plain = self.size_in_pixels("a+1")
        same, large, other = (self.pixels("a+1", *words)[:2] for words in (
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
            self.assertEqual((told["width"], told["height"]), self.pixels(text)[:2])
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
        return xml.etree.ElementTree.fromstring(self.picture(*words, name="x.svg")[0])

    def test_size_role_title_and_place_in_a_line(self):
        width, height = self.size_in_pixels("a/b")
        root = self.svg("a/b")
        told = {"viewBox": f"0 0 {width} {height}", "width": str(width), "height": str(height), "role": "img",
                "style": "vertical-align:%gem" % -self.measured("a/b")["em"]["depth"]}
        self.assertEqual({name: root.get(name) for name in told}, told)
        self.assertEqual(root[0].tag, SVG + "title")

    def test_names_are_used_and_mean_the_same_everywhere(self):
        shapes = {}
        for text in "a/b", "x+y", "x+x+x+x+x+x", "a+a+a+a+a+b+b+b+b+b", "w" * 9 + "+" + "v" * 9:
            root = self.svg(text)
            named = {path.get("id"): path.get("d") for path in root.iter(SVG + "path") if path.get("id")}
            used = {use.get("{http://www.w3.org/1999/xlink}href")[1:] for use in root.iter(SVG + "use")}
            self.assertEqual(set(named), used, text)
            for name, shape in named.items():
                self.assertEqual(shapes.setdefault(name, shape), shape)
        self.assertGreater(len(shapes), 4)

    def test_colours(self):
        for words, fills in (([], ["#ffffff"]), (["--transparent"], []),
                             *((["--background", name], [fill]) for name, fill in self.COLOURS.items())):
            self.assertEqual([rect.get("fill") for rect in self.svg("a/b", *words).iter(SVG + "rect")], fills)
        for words, fill in (["teal"], "#008080"), (["currentColor"], None):
            root = self.svg("a/b", "--color", *words)
            self.assertEqual({path.get("fill") for path in root.iter(SVG + "path")}, {fill})
        self.assertEqual(root.find(SVG + "g").get("fill"), "currentColor")

    def test_shapes_are_those_of_the_pixels(self):
        """But for what fitting to the pixels moves, a pixel at most."""
        for text in "a/b", "x+x+x+x+x+x-str(xy)", "sqr(b^2-4*a*c)", "sum(i,i=1,n)*greek a<=int(x*dx,0,1)":
            root = self.svg(text, "--dpi", "288", "--exact")
            named = {path.get("id"): path.get("d") for path in root.iter(SVG + "path") if path.get("id")}
            width, height, rows = self.pixels(text, "--dpi", "288", "--exact")
            shapes = set()
            for path in root.find(SVG + "g"):
                name = path.get("{http://www.w3.org/1999/xlink}href")
                x, y = int(path.get("x", "0")), int(path.get("y", "0"))
                if path.tag in (SVG + "path", SVG + "use"):
                    contours = polygons(named[name[1:]] if name else path.get("d"))
                    shapes |= inside([[(x + dx, y + dy) for dx, dy in one] for one in contours], width, height)
            ink = {(x, y) for y in range(height) for x in range(width) if rows[y][x][0] < 128}
            for some, others in (shapes, ink), (ink, shapes):
                far = {(x, y) for x, y in some
                       if not any((x + dx, y + dy) in others for dx in (-1, 0, 1) for dy in (-1, 0, 1))}
                self.assertEqual(far, set(), text)

    def test_marks(self):
        found = [path.get("d") for path in self.svg("a/b", "--select", "L:2").iter(SVG + "path")
                 if path.get("fill") == "#0078d7"]
        self.assertEqual(found, ["M%d %dh%dv%dh-%dz" % (*box, box[2]) for box in (
            tuple(100 * n for n in mark) for mark in MARKS)])

    def test_boxes(self):
        found = []
        for path in self.svg("a/b", "--boxes").iter(SVG + "path"):
            if path.get("fill-opacity"):
                shape = re.fullmatch(r"M(-?\d+) (-?\d+)h(\d+)v(\d+)h-\3z", path.get("d")).groups()
                found.append(((path.get("fill"), path.get("fill-opacity")), tuple(int(n) / 100 for n in shape)))
        self.assertEqual(found, list(box_bars()))


class Pdf(PictureCase):
    def fills(self, *words):
        """Colour and rectangle of what is filled, in pixels."""
        content = pdf_content(self.picture(*words, name="x.pdf")[0])
        colour, fills = None, []
        for red, green, blue, *box in re.findall(
                r"([\d.]+) ([\d.]+) ([\d.]+) rg|(-?[\d.]+) (-?[\d.]+) ([\d.]+) ([\d.]+) re", content):
            if red:
                colour = "#%02x%02x%02x" % tuple(round(255 * float(part)) for part in (red, green, blue))
            else:
                fills.append((colour, tuple(float(n) / 0.75 for n in box)))
        return fills

    def test_boxes_and_marks(self):
        """The ground of the page comes first; of a/b, the bar is ink and comes behind the marks."""
        bar = (0, 20, 17, 1)
        ink = ("#000000", bar)
        ground = ("#ffffff", (0, 0, 17 / 0.75, 32 / 0.75))  # whole points
        boxes = [(colour, shape) for (colour, _), shape in box_bars()]
        marks = [("#0078d7", shape) for shape in MARKS]
        for words, expected in (([], [ground, ink]), (["--transparent"], [ink]), (["--boxes"], [ground, ink, *boxes]),
                                (["--select", "L:2"], [ground, *marks, ("#ffffff", bar)])):
            found = self.fills("a/b", *words)
            self.assertEqual([colour for colour, _ in found], [colour for colour, _ in expected], words)
            for (_, told), (_, pixels) in zip(found, expected):
                self.assertLess(max(abs(n - m) for n, m in zip(told, pixels)), 0.01, words)

    def test_page(self):
        pdf = self.picture("a/b", name="x.pdf")[0]
        box = re.search(rb"/MediaBox \[ ?0 0 ([0-9.]+) ([0-9.]+) ?\]", pdf)
        for told, pixels in zip(box.groups(), self.size_in_pixels("a/b")):
            self.assertAlmostEqual(float(told), pixels * 0.75, places=2)

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
                         r"(?s)Title: +a over b.*Subject: +a/b.*Tagged: +yes")
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

    def test_as_other_programs_write_it(self):
        """The same text in other forms that these formats have."""
        for name, text in (
                ("x.svg", '<svg xmlns="http://www.w3.org/2000/svg"><metadata><source xmlns="urn:mivora">'
                 "<![CDATA[a/b&]]></source></metadata></svg>"),
                ("x.pdf", "%PDF-1.5\n1 0 obj <</Creator <6D69766F7261> /Pages 2 0 R/Subject "
                 "<FEFF 0061002F00620026>/N 1>> endobj")):
            (self.folder / name).write_text(text)
            self.assertEqual(self.source_of(name), "a/b&", name)

    def test_compressed_pdf(self):
        self.draw("a/b", "x.pdf")
        subprocess.run(["qpdf", "--object-streams=generate", "x.pdf", "y.pdf"], cwd=self.folder, check=True)
        self.assertNotIn(b"Subject", (self.folder / "y.pdf").read_bytes())
        self.assertEqual(self.source_of("y.pdf"), "a/b")

    def test_damaged_pictures_get_an_answer(self):
        chance = random.Random(5)
        for name in self.CARRIERS:
            whole = self.draw("a/b", "x." + name)
            for _ in range(12):
                data = bytearray(whole[:chance.randrange(len(whole))])
                for _ in range(chance.randrange(5) if data else 0):
                    data[chance.randrange(len(data))] = chance.randrange(256)
                (self.folder / ("x." + name)).write_bytes(data)
                self.assertIn(run("comment", self.folder / ("x." + name))[0], (0, 1))

    def test_of_a_metafile_from_elsewhere(self):
        data = self.picture("a", name="x.wmf")[0]
        # Another program's text in the place of the bare tag: the record grows by eight bytes.
        at = data.index(b"qvmrz") - 12
        kind, size, length = struct.unpack_from("<3I", data, at)
        self.assertEqual((kind, length), (70, 5))
        text = "äb/c=1".encode("cp1252")
        record = struct.pack("<3I", 70, size + 4, 5 + len(text)) + b"qvmrz" + text
        changed = bytearray(data[:at] + record.ljust(size + 4, b"\0") + data[at + size:])
        changed[48:52] = struct.pack("<I", len(changed))
        (self.folder / "x.wmf").write_bytes(changed)
        self.assertEqual(self.source_of("x.wmf"), "äb/c=1")
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
                    self.assertEqual(tuple(one["size"]), pixels_of_png((out / one["file"]).read_bytes())[:2])
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
