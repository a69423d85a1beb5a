#!/usr/bin/env python3
"""Pictures of the command line: what is in them, how large they are, what they carry."""
import hashlib
import json
import pathlib
import random
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "compare"))

import program
from formula_list import Generator
from picture_files import pixels_of_png, png_chunks
from program import PICTURES, Case

SVG = "{http://www.w3.org/2000/svg}"


def run(*words, stdin=b"", cwd=None):
    """Runs mivora; words may be text or bytes."""
    status, out, err = program.run(*words, stdin=stdin, cwd=cwd)
    return status, out.decode(), err


def picture(folder, *words, name="x.png"):
    path = pathlib.Path(folder) / name
    status, out, err = run("render", *words, "-o", str(path))
    assert status == 0, err
    return path.read_bytes(), out


class PictureCase(Case):
    def setUp(self):
        super().setUp()
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = self.temporary.name

    def tearDown(self):
        self.temporary.cleanup()

    def size_in_pixels(self, text):
        return [int(n) for n in run("measure", text)[1].split("\t")[0].split()][2:]


class Pictures(PictureCase):
    MANY = 1000  # random formulas

    def test_prints_22_times_the_pixels(self):
        width, height = self.size_in_pixels("a/b")
        self.assertEqual(picture(self.folder, "a/b")[1], "%d %d\n" % (22 * width, 22 * height))

    def test_png_has_the_formulas_size_in_every_resolution(self):
        width, height = self.size_in_pixels("a/b")
        for dpi in 96, 192, 300:
            data, _ = picture(self.folder, "a/b", "--dpi", str(dpi))
            got = pixels_of_png(data)
            self.assertEqual(got[0], -(-width * dpi // 96))
            self.assertEqual(got[1], -(-height * dpi // 96))
            dark = sum(max(pixel[:3]) < 100 for row in got[2] for pixel in row)
            self.assertGreater(dark, 20 * (dpi / 96) ** 2)
            self.assertLess(dark, got[0] * got[1] / 4)

    def test_bmp_in_every_resolution(self):
        width, height = self.size_in_pixels("a/b")
        for dpi in 96, 192:
            data, _ = picture(self.folder, "a/b", "--dpi", str(dpi), name="x.bmp")
            size, start, head, w, h = struct.unpack("<2xI4xI3i", data[:26])
            self.assertEqual((size, start, head), (len(data), 54, 40))
            self.assertEqual((w, h), (width * dpi // 96, height * dpi // 96))

    def test_selection_and_grey(self):
        """The colours of the system: highlight 0078D7, its text white, grey text 6D6D6D."""
        highlight, grey = (0x00, 0x78, 0xD7), (0x6D, 0x6D, 0x6D)
        colours = {}
        for name, words in (("plain", []), ("node", ["--select", "L:1"]),
                            ("subtree", ["--select", "L:2"]), ("grey", ["--grayed"]),
                            ("root", ["--select", ":1"])):
            rows = pixels_of_png(picture(self.folder, "a/b", *words)[0])[2]
            colours[name] = [pixel[:3] for row in rows for pixel in row]
        counts = {name: pixels.count(highlight) for name, pixels in colours.items()}
        self.assertEqual(counts["plain"], 0)
        self.assertGreater(counts["root"], 0)
        self.assertGreater(counts["node"], counts["root"])
        self.assertGreater(counts["subtree"], 2 * counts["node"])
        self.assertEqual(counts["grey"], 0)
        self.assertGreater(colours["grey"].count(grey), 10)
        self.assertNotIn((0, 0, 0), colours["grey"])

    def test_boxes_are_drawn_over_the_same_picture(self):
        plain = pixels_of_png(picture(self.folder, "a/b", "--dpi", "192")[0])
        boxes = pixels_of_png(picture(self.folder, "a/b", "--dpi", "192", "--boxes")[0])
        self.assertEqual(plain[:2], boxes[:2])
        coloured = [pixel for row in boxes[2] for pixel in row
                    if max(pixel[:3]) - min(pixel[:3]) > 40]
        self.assertGreater(len(coloured), 100)

    def test_same_input_gives_same_bytes(self):
        """In another folder, in a process of its own, behind other formulas."""
        text = "sum(mark(x,i,2),i=1,n)=(n*(n+1))/2"
        lines = pathlib.Path(self.folder) / "lines.txt"
        lines.write_text("a/b\nsqr(x)\n%s\n" % text)
        for name in PICTURES:
            with self.subTest(name):
                once = picture(self.folder, text, name="x." + name)[0]
                with tempfile.TemporaryDirectory() as other:
                    self.assertEqual(run("render", text, "-o", "y." + name, cwd=other)[0], 0)
                    twice = (pathlib.Path(other) / ("y." + name)).read_bytes()
                    run("batch", str(lines), "-d", other, "--format", name)
                    batch = (pathlib.Path(other) / ("000003." + name)).read_bytes()
                self.assertEqual(hashlib.md5(once).digest(), hashlib.md5(twice).digest())
                self.assertEqual(hashlib.md5(once).digest(), hashlib.md5(batch).digest())

    def test_extensions_in_any_case(self):
        self.assertTrue(picture(self.folder, "a", name="x.PNG")[0].startswith(b"\x89PNG"))
        self.assertEqual(picture(self.folder, "a", name="x.WMF")[0][40:44], b" EMF")

    def test_a_failure_leaves_the_old_file(self):
        path = pathlib.Path(self.folder) / "x.png"
        path.write_bytes(b"old")
        long = "a+" * 5000 + "a"
        status, _, err = run("render", long, "-o", str(path), "--dpi", "2400")
        self.assertEqual(status, 1)
        self.assertIn("pixels long", err)
        self.assertEqual(path.read_bytes(), b"old")

    def test_no_ink_is_cut(self):
        """A larger canvas shows the same pixels in its middle, and nothing around them."""
        texts = ["f(x,y)", "f", "j^j", "str('f')"] + [Generator(seed).formula(1 + seed % 4)
                                                      for seed in range(self.MANY)]
        margin = 12
        for words in [], ["--dpi", "144"]:
            folders = [pathlib.Path(self.folder) / ("%s%d" % (name, len(words))) for name in "ab"]
            for folder, more in zip(folders, ([], ["--margin", str(margin)])):
                run("batch", "-", "-d", str(folder), "--format", "png", *words, *more,
                    stdin="\n".join(texts).encode())
            for number, text in enumerate(texts, 1):
                name = "%06d.png" % number
                if not (folders[0] / name).exists():
                    continue  # a formula without an extent
                width, height, rows = pixels_of_png((folders[0] / name).read_bytes())
                large = pixels_of_png((folders[1] / name).read_bytes())
                self.assertEqual(large[:2], (width + 2 * margin, height + 2 * margin), text)
                middle = [row[margin:-margin] for row in large[2][margin:-margin]]
                self.assertEqual(rows, middle, text)
                ink = sum(pixel != (255, 255, 255, 255) for row in large[2] for pixel in row)
                self.assertEqual(ink, sum(pixel != (255, 255, 255, 255) for row in rows
                                          for pixel in row), text)

    def test_margins_and_the_bare_rectangle(self):
        width, height = self.size_in_pixels("f")
        plain = json.loads(run("measure", "f", "--json")[1])
        self.assertEqual((plain["width"], plain["height"]), (width, height + 1))  # its foot
        for words, grown in ((["--exact"], (width, height)), (["--margin", "5"], (width + 10, height + 11)),
                             (["--exact", "--margin", "5"], (width + 10, height + 10))):
            data, _ = picture(self.folder, "f", *words)
            self.assertEqual(pixels_of_png(data)[:2], grown)

    def test_lines_are_sharp(self):
        """Bars are whole rows of pure ink in every resolution."""
        for dpi in 96, 120, 144, 150, 192, 300:
            width, _, rows = pixels_of_png(picture(self.folder, "a/(b+c+d)", "--dpi", str(dpi))[0])
            bars = [row for row in rows if sum(pixel[0] < 255 for pixel in row) > 0.8 * width]
            self.assertEqual(len(bars), max(1, round(dpi / 96)), dpi)
            for row in bars:
                self.assertEqual({pixel[0] for pixel in row} - {0, 255}, set(), dpi)

    def test_colours_and_clear_ground(self):
        red = (255, 0, 0)
        rows = pixels_of_png(picture(self.folder, "a/b", "--color", "#f00", "--background", "navy")[0])[2]
        seen = {pixel for row in rows for pixel in row}
        self.assertTrue({(*red, 255), (0, 0, 128, 255)} <= seen)
        self.assertFalse({(0, 0, 0, 255), (255, 255, 255, 255)} & seen)
        rows = pixels_of_png(picture(self.folder, "a/b", "--color", "Red", "--transparent")[0])[2]
        seen = {pixel for row in rows for pixel in row}
        self.assertIn((*red, 255), seen)
        self.assertTrue(all(pixel[:3] == red for pixel in seen if pixel[3]), seen)
        self.assertIn(0, {pixel[3] for pixel in seen})
        bmp, _ = picture(self.folder, "a/b", "--transparent", name="x.bmp")
        self.assertEqual(struct.unpack("<I", bmp[14:18])[0], 108)  # a head that knows opacity
        self.assertEqual(bmp[122 + 3], 0)

    def test_size_and_face(self):
        sizes = [self.size_in_pixels("a+1")] + [
            pixels_of_png(picture(self.folder, "a+1", *words)[0])[:2]
            for words in (["--size", "12"], ["--size", "24"], ["--font", "Arial"])]
        self.assertEqual(sizes[1], tuple(sizes[0]))
        self.assertGreater(sizes[2][0], 1.5 * sizes[0][0])  # the gaps do not grow
        self.assertAlmostEqual(sizes[2][1], 2 * sizes[0][1], delta=4)
        self.assertNotEqual(sizes[3][0], sizes[0][0])
        large, told = picture(self.folder, "a+1", "--size", "24", name="x.wmf")
        self.assertEqual(told, "%d %d\n" % (22 * sizes[2][0], 22 * sizes[2][1]))
        self.assertIn("Arial".encode("utf-16le"), picture(self.folder, "a", "--font", "Arial",
                                                          name="x.wmf")[0])

    def test_standard_output_is_a_file_too(self):
        for name in PICTURES:
            words = ["a/b", "--size", "15"]
            file, _ = picture(self.folder, *words, name="x." + name)
            status, piped, err = program.run("render", *words, "-o", "-", "--format", name)
            self.assertEqual((status, err), (0, ""))
            self.assertEqual(piped, file, name)
        self.assertTrue(picture(self.folder, "a", "--format", "png", name="x.dat")[0][1:4] == b"PNG")

    def test_png_tells_its_resolution(self):
        for dpi, metre in (96, 3780), (300, 11811):
            chunks = dict(png_chunks(picture(self.folder, "a", "--dpi", str(dpi))[0]))
            self.assertEqual(chunks[b"pHYs"], struct.pack(">IIB", metre, metre, 1))

    def test_size_as_json(self):
        """The line that letters stand on: rows of letters, whatever stands over or below them."""
        for text, below in (("a", 0), ("a+b", 0), ("a/b", 15), ("a_b", None), ("greek a", None)):
            told = json.loads(run("measure", text, "--json")[1])
            self.assertEqual(json.loads(picture(self.folder, text, "--json")[1]), told)
            width, height, _ = pixels_of_png(picture(self.folder, text)[0])
            self.assertEqual((told["width"], told["height"]), (width, height))
            self.assertEqual(told["em"]["size"], 16)
            self.assertAlmostEqual(told["em"]["depth"], told["depth"] / 16, delta=0.0006)
            double = json.loads(run("measure", text, "--json", "--dpi", "192")[1])
            self.assertAlmostEqual(double["depth"], 2 * told["depth"], delta=1)
        letters = json.loads(run("measure", "a", "--json")[1])
        self.assertEqual((letters["axis"], letters["depth"]), (8, 3))  # a line of 14 above, 3 below


class Svg(PictureCase):
    def svg(self, *words):
        return xml.etree.ElementTree.fromstring(picture(self.folder, *words, name="x.svg")[0])

    def test_size_role_title_and_place_in_a_line(self):
        width, height = self.size_in_pixels("a/b")
        root = self.svg("a/b")
        self.assertEqual(root.get("viewBox"), "0 0 %d %d" % (width, height))
        self.assertEqual((root.get("width"), root.get("height")), (str(width), str(height)))
        self.assertEqual(root.get("role"), "img")
        self.assertEqual(root[0].tag, SVG + "title")
        depth = json.loads(run("measure", "a/b", "--json")[1])["em"]["depth"]
        self.assertEqual(root.get("style"), "vertical-align:%gem" % -depth)

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
        for words, ground in (([], "#ffffff"), (["--background", "#123"], "#112233"),
                              (["--transparent"], None)):
            rect = self.svg("a/b", *words).find(SVG + "rect")
            self.assertEqual(rect is not None and rect.get("fill"), ground or False)
        fills = {path.get("fill") for path in self.svg("a/b", "--color", "teal").iter(SVG + "path")}
        self.assertEqual(fills, {"#008080"})
        group = self.svg("a/b", "--color", "currentColor").find(SVG + "g")
        self.assertEqual(group.get("fill"), "currentColor")
        self.assertEqual({path.get("fill") for path in group.iter(SVG + "path")}, {None})


class Pdf(PictureCase):
    def text_of(self, *words):
        path = pathlib.Path(self.folder) / "x.pdf"
        picture(self.folder, *words, name="x.pdf")
        return subprocess.run(["pdftotext", "-raw", str(path), "-"], capture_output=True,
                              check=True).stdout.decode().split("\f")[0]

    def test_page(self):
        width, height = self.size_in_pixels("a/b")
        pdf = picture(self.folder, "a/b", name="x.pdf")[0]
        box = re.search(rb"/MediaBox \[ ?0 0 ([0-9.]+) ([0-9.]+) ?\]", pdf)
        self.assertAlmostEqual(float(box[1]), width * 0.75, places=2)
        self.assertAlmostEqual(float(box[2]), height * 0.75, places=2)

    @unittest.skipUnless(shutil.which("pdftotext"), "poppler-utils is not installed")
    def test_text_in_reading_order(self):
        for text, signs in (("sqr(x)", "√x"), ("greek a+greek O", "α+Ο"), ("a*(b+c)", "a(b+c)"),
                            ("a<=b", "a≤b"), ("sum(x,i=1,n)", "∑ni=1x"), ("x^2-y", "x2−y"),
                            ("sin(x)/2", "sinx2")):
            self.assertEqual("".join(self.text_of(text).split()), signs, text)

    @unittest.skipUnless(shutil.which("pdfinfo"), "poppler-utils is not installed")
    def test_words_about_it(self):
        picture(self.folder, "a/b", name="x.pdf")
        path = str(pathlib.Path(self.folder) / "x.pdf")
        told = subprocess.run(["pdfinfo", path], capture_output=True, check=True).stdout.decode()
        for line in r"Title: +a over b", r"Subject: +a/b", r"Tagged: +yes":
            self.assertRegex(told, line)
        tree = subprocess.run(["pdfinfo", "-struct", path], capture_output=True, check=True).stdout
        self.assertIn(b"Formula", tree)


class Source(PictureCase):
    CARRIERS = [name for name in PICTURES if name in ("svg", "png", "pdf")]
    TEXTS = ["a/b", "  a   b  ", "'", "''", "a\\x41\\", "<&>\"'", "a\tb\rc\nd", "(((", ")\\(", "%00\x7f",
             "ÿ€äß", "\x01\x1f", "2" + "x" * 59999]

    def source_of(self, name):
        status, out, err = run("comment", str(pathlib.Path(self.folder) / name))
        return out[:-1] if status == 0 else err

    def draw(self, text, name, *words):
        """From standard input: what a word cannot hold comes through too."""
        done = program.run("render", "-", "-o", str(pathlib.Path(self.folder) / name), *words,
                           stdin=text.encode() + b"\n")
        self.assertEqual(done[0], 0, done[2])

    def test_comes_back(self):
        every = "".join(bytes([n]).decode("cp1252", "ignore") for n in range(1, 256))
        for name in [*self.CARRIERS, "wmf"]:
            for text in [*self.TEXTS, every]:
                with self.subTest(name=name, text=text[:20]):
                    self.draw(text, "x." + name, *(["--embed"] if name == "wmf" else []))
                    self.assertEqual(self.source_of("x." + name), text)

    def test_a_nul_comes_back_but_from_a_metafile(self):
        for name in self.CARRIERS:
            self.draw("a\0b", "x." + name)
            self.assertEqual(self.source_of("x." + name), "a\0b")
        status, _, err = program.run("render", "-", "-o", str(pathlib.Path(self.folder) / "x.wmf"),
                                     "--embed", stdin=b"a\0b")
        self.assertEqual(status, 1)
        self.assertIn("NUL", err)

    def test_left_out(self):
        for name in self.CARRIERS:
            self.draw("a/b", "x." + name, "--no-embed")
            self.assertIn("no formula's text is in this picture", self.source_of("x." + name))
            self.assertNotIn(b"a/b", (pathlib.Path(self.folder) / ("x." + name)).read_bytes())
        self.draw("a/b", "x.wmf")
        self.assertEqual(self.source_of("x.wmf"), "")  # the bare tag
        self.draw("a/b", "x.fml")
        here = pathlib.Path(self.folder)
        self.assertEqual(run("inspect", str(here / "x.fml"), "-o", str(here / "y.wmf"))[0], 0)
        self.assertEqual(self.source_of("y.wmf"), "")
        self.draw("a/b", "x.bmp")
        self.assertIn("a .bmp holds no text", self.source_of("x.bmp"))

    def test_as_other_programs_write_it(self):
        """The same text in the other forms that these formats have."""
        pdf = "%%PDF-1.5\n1 0 obj <</Creator %s /Pages 2 0 R/Subject %s/N 1>> endobj"
        svg = "<svg xmlns='http://www.w3.org/2000/svg'%s><metadata>%s</metadata></svg>"
        cases = {
            "entity.svg": svg % ("", "<source xmlns='urn:mivora'>a&#47;&#x62;&amp;</source>"),
            "prefix.svg": svg % (' xmlns:m="urn:mivora"', "<m:source>a/b&amp;</m:source>"),
            "cdata.svg": svg % ("", '<source xmlns="urn:mivora"><![CDATA[a/b&]]></source>'),
            "octal.pdf": pdf % ("(mivora)", r"(a\057b\46)"),
            "hex.pdf": pdf % ("<6D69766F7261>", "<FEFF 0061002F00620026>"),
        }
        for name, text in cases.items():
            (pathlib.Path(self.folder) / name).write_text(text)
            self.assertEqual(self.source_of(name), "a/b&", name)

    @unittest.skipUnless(shutil.which("qpdf") and "pdf" in PICTURES, "qpdf is not installed")
    def test_compressed_pdf(self):
        self.draw("a/b", "x.pdf")
        here = pathlib.Path(self.folder)
        subprocess.run(["qpdf", "--object-streams=generate", here / "x.pdf", here / "y.pdf"], check=True)
        self.assertNotIn(b"Subject", (here / "y.pdf").read_bytes())
        self.assertEqual(self.source_of("y.pdf"), "a/b")

    def test_damaged_pictures_get_an_answer(self):
        chance = random.Random(5)
        for name in self.CARRIERS:
            self.draw("a/b", "x." + name)
            path = pathlib.Path(self.folder) / ("x." + name)
            whole = path.read_bytes()
            for _ in range(12):
                data = bytearray(whole[:chance.randrange(len(whole))])
                for _ in range(chance.randrange(5)):
                    data[chance.randrange(len(data))] = chance.randrange(256)
                path.write_bytes(data)
                self.assertIn(run("comment", str(path))[0], (0, 1))

    @unittest.skipUnless(all(map(shutil.which, ("pngcheck", "xmllint", "qpdf"))), "no checkers")
    def test_checkers_find_no_fault(self):
        checks = {"png": ["pngcheck", "-q"], "svg": ["xmllint", "--noout"], "pdf": ["qpdf", "--check"]}
        for text in self.TEXTS:
            for name in self.CARRIERS:
                self.draw(text, "x." + name)
                done = subprocess.run([*checks[name], str(pathlib.Path(self.folder) / ("x." + name))],
                                      capture_output=True)
                self.assertEqual(done.returncode, 0, (name, text[:20], done.stdout, done.stderr))

    def test_of_a_metafile_from_elsewhere(self):
        path = pathlib.Path(self.folder) / "x.wmf"
        picture(self.folder, "a", name="x.wmf")
        self.assertEqual(run("comment", str(path)), (0, "\n", ""))
        data = path.read_bytes()
        # Another program's text in the place of the bare tag: the record grows by eight bytes.
        at = data.index(b"qvmrz") - 12
        kind, size, length = struct.unpack("<3I", data[at:at + 12])
        self.assertEqual((kind, length), (70, 5))
        text = "äb/c=1".encode("cp1252")
        record = struct.pack("<3I", 70, size + 4, 5 + len(text)) + b"qvmrz" + text
        record += bytes(size + 4 - len(record))
        changed = bytearray(data[:at] + record + data[at + size:])
        changed[48:52] = struct.pack("<I", len(changed))
        path.write_bytes(changed)
        self.assertEqual(run("comment", str(path)), (0, "äb/c=1\n", ""))
        path.write_bytes(b"nothing of the kind")
        status, out, err = run("comment", str(path))
        self.assertEqual((status, out), (1, ""))
        self.assertIn("不能解析该文件!", err)


class Manifest(PictureCase):
    def test_a_line_for_each_formula(self):
        lines = 'a/b\n2x\n\n中\nf\n'.encode()
        for jobs in "1", "2":
            out = pathlib.Path(self.folder) / jobs
            file = pathlib.Path(self.folder) / ("m" + jobs)
            run("batch", "-", "-d", str(out), "--format", "png", "--jobs", jobs, "--manifest", str(file),
                stdin=lines)
            told = [json.loads(line) for line in file.read_text(encoding="utf-8").splitlines()]
            self.assertEqual([one["line"] for one in told], [1, 2, 3, 4, 5])
            self.assertEqual([one["text"] for one in told], ["a/b", "2x", "", "中", "f"])
            self.assertEqual([one["file"] is None for one in told], [False, False, False, True, False])
            self.assertIn("Position 2", told[1]["error"])
            self.assertIn("U+4E2D", told[3]["error"])
            for one in told:
                self.assertEqual(list(one), ["line", "file", "text", "size", "depth", "error"])
                if one["file"]:
                    width, height, _ = pixels_of_png((out / one["file"]).read_bytes())
                    self.assertEqual(one["size"], [width, height])
            self.assertEqual(told[4]["depth"], json.loads(run("measure", "f", "--json")[1])["depth"])

    def test_makes_the_folders(self):
        out = pathlib.Path(self.folder) / "new" / "deep"
        self.assertEqual(run("batch", "-", "-d", str(out) + "/", stdin=b"a\n")[0], 0)
        self.assertTrue((out / "000001.wmf").exists())

    def test_stops_at_once(self):
        """One message where nothing can be written, and no picture."""
        blocked = pathlib.Path(self.folder) / "file"
        blocked.write_text("")
        for words in (["-d", str(blocked)], ["-d", str(blocked / "x")], ["-d", self.folder, "--manifest", self.folder + "/no/m"]):
            status, out, err = run("batch", "-", *words, stdin=b"a\n" * 100)
            self.assertEqual((status, out, err.count("\n")), (1, "", 1), err)


class Usage(PictureCase):
    WRONG = [
        (["x.png", "--size", "0"], "--size"), (["x.png", "--size", "many"], "--size"),
        (["x.png", "--margin", "-1"], "--margin"), (["x.png", "--margin", "99999"], "--margin"),
        (["x.png", "--color", "#12"], "--color"), (["x.png", "--color", "#12345g"], "--color"),
        (["x.png", "--background", "blau"], "--background"), (["x.png", "--color", ""], "--color"),
        (["x.png", "--color", "currentColor"], "svg"), (["x.png", "--font", "f" * 32], "--font"),
        (["x.png", "--transparent", "--background", "red"], "exclude"),
        (["x.png", "--embed", "--no-embed"], "exclude"), (["x.wmf", "--transparent"], "metafiles"),
        (["x.wmf", "--color", "red"], "metafiles"), (["x.fml", "--embed"], "stored"),
        (["x.fml", "--json"], "stored"), (["-"], "--format"), (["-", "--format", "fml"], "stored"),
        (["-", "--format", "png", "--json"], "--json"),
    ]

    def test_wrong_words(self):
        for words, named in self.WRONG:
            status, out, err = run("render", "a", "-o", *words, cwd=self.folder)
            self.assertEqual((status, out, err.count("\n")), (2, "", 1), (words, err))
            self.assertIn(named, err)
        self.assertEqual(list(pathlib.Path(self.folder).iterdir()), [])


if __name__ == "__main__":
    program.main()
