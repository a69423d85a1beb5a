"""The installed headers: each stands alone, and on Windows beside those of the system."""
import concurrent.futures
import itertools
import re
import subprocess

# They give the system's names, or elsewhere stand in for its headers.
OF_THE_SYSTEM = {"types.h", "gdi.h", "windows_names.h"}
# Names that the system's headers define anew by UNICODE, and that are kept for ours all the same:
# these become functions again, so that either side can use them.
KEPT = {"AppendMenu", "CreateFontIndirect", "DefWindowProc", "DrawText", "ExtTextOut",
        "GetMenuString", "GetObject", "GetTextMetrics", "GetWindowText", "GetWindowTextLength",
        "InsertMenu", "IsDialogMessage", "LoadMenu", "MessageBox", "ModifyMenu", "PostMessage",
        "SendMessage", "SetWindowText", "TextOut"}


def compiler_words(include, compiler, windows):
    cairo = [] if windows else subprocess.check_output(["pkg-config", "--cflags", "cairo"], text=True).split()
    return [compiler, "-std=c++20", "-Wall", "-Wextra", "-Werror", f"-I{include}", *cairo]


def compile_unit(words, unit):
    done = subprocess.run([*words, "-fsyntax-only", "-xc++", "-"], input=unit, text=True,
                          capture_output=True)
    return None if done.returncode == 0 else f"{unit}\n{done.stderr}"


def windows_units(every, first):
    """Before or after the system's headers, with narrow or wide characters as its own default."""
    system = "#include <windows.h>\n#include <commctrl.h>\n#include <commdlg.h>\n"
    for define, ours in itertools.product(("", "#define UNICODE\n#define _UNICODE\n"),
                                          (first, every)):
        yield define + system + ours
        yield define + ours + system


def names_by_character(compiler):
    """Names of the system's headers that stand for another thing with UNICODE."""
    def dump(*words):
        return subprocess.check_output([compiler, "-xc++", "-E", *words, "-"], text=True,
                                       input="#include <windows.h>\n")

    def meanings(*how):
        macros = re.findall(r"^#define (\w+)(?:\([^)]*\))? (.*)$", dump("-dM", *how), re.M)
        types = re.findall(r"^\s*typedef ([^;{},()]+?)\b(\w+(?:,[^;()]*)?);", dump(*how), re.M)
        return dict(macros) | {name: meaning for meaning, names in types
                               for name in re.findall(r"\w+", names)}

    narrow, wide = meanings(), meanings("-DUNICODE")
    return {name for name in narrow
            if narrow[name] != wide.get(name) or narrow[name] == f"__MINGW_NAME_AW({name})"}


def check_names(headers, compiler):
    """A public declaration must not change with a definition that the host makes."""
    names = names_by_character(compiler)
    assert KEPT <= names and {"LOGFONT", "TCHAR", "LPCTSTR"} <= names, len(names)
    for header in headers:
        if header.name in OF_THE_SYSTEM:
            continue
        text = re.sub(r"//[^\n]*|/\*.*?\*/|\"[^\"\n]*\"", "", header.read_text(), flags=re.S)
        found = names & set(re.findall(r"\w+", text)) - KEPT
        assert not found, (header.name, found)


def check(include, compiler, windows):
    headers = sorted((include / "mivora").rglob("*.h"))
    assert len(headers) > 20, headers
    # The rest of the system's headers is much to read, and none of ours may rely on it.
    alone = "#define WIN32_LEAN_AND_MEAN\n" if windows else ""
    units = [f'{alone}#include "{header}"\n' for header in headers]
    # Together: in both orders.
    every, reverse = ("".join(f'#include "{header}"\n' for header in order)
                      for order in (headers, headers[::-1]))
    units += [every, reverse]
    if windows:
        units += windows_units(every, "#include <mivora/mivora.h>\n")
        check_names(headers, compiler)
    words = compiler_words(include, compiler, windows)
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        failures = [text for text in pool.map(lambda unit: compile_unit(words, unit), units)
                    if text]
    assert not failures, "\n".join(failures)
    print(f"{len(headers)} headers stand alone")
