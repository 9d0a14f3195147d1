"""zorvak list"""

import configparser
import shutil

import pytest

from conftest import ROOT, run_on_terminal

INI = b"[Example]\r\nTable=Family\r\nDefault Font = \"Some Font\"\r\n[Nobody]\r\nTable=x\r\n"


def test_the_encodings_with_font_table_and_default_font(zorvak, example, tmp_path):
    program = zorvak.installed_in(tmp_path, [example], ini=INI)
    folder = tmp_path / "conversion Plugins"
    for name in ["Zulu.DLL", "alpha.dLl", "\u0995.dll", "no.dlx", "dll.txt"]:
        shutil.copy(example, folder / name)
    (folder / "damaged.dll").write_bytes(b"")
    (folder / "without-a-dotdll").write_bytes(b"")
    (folder / "folder.dll").mkdir()
    result = program.run("list")
    assert (result.code, result.err) == (0, "")
    assert result.out.decode() == ("Example\tFamily\tSome Font\n"
                                   "Zulu\t\t\n"
                                   "alpha\t\t\n"
                                   "damaged\t\t\n"
                                   "without-a-do\t\t\n"
                                   "\u0995\t\t\n")


def test_without_plugin_ini_the_names_alone(zorvak, example, tmp_path):
    assert zorvak.installed_in(tmp_path, [example]).run("list").out == b"Example\t\t\n"


def test_a_table_with_a_heading_on_a_terminal(native, example, tmp_path):
    program = native.installed_in(tmp_path, [example], ini=INI)
    shutil.copy(example, tmp_path / "conversion Plugins" / "A longer name.dll")
    code, errors, shown = run_on_terminal(program.command("list"), "stdout")
    assert (code, errors) == (0, b"")
    assert shown.replace("\r\n", "\n") == ("Encoding       Font table  Default font\n"
                                          "A longer name              \n"
                                          "Example        Family      Some Font\n")


@pytest.mark.parametrize("plugins", [None, []])
def test_nothing_installed(zorvak, tmp_path, plugins):
    result = zorvak.installed_in(tmp_path, plugins).run("list")
    assert result.code == 1 and result.out == b""
    assert "conversion Plugins" in result.err


def test_the_shipped_encodings(zorvak):
    ini = configparser.ConfigParser()
    ini.read_string((ROOT / "data" / "Plugin.INI").read_text(encoding="cp1252"))
    names = sorted(path.stem for path in (ROOT / "data" / "encodings").glob("*.txt"))
    result = zorvak.run("list")
    assert (result.code, result.err) == (0, "")
    lines = result.out.decode().splitlines()
    assert lines == [f"{name}\t{ini[name]['Table']}\t{ini[name]['Default Font']}" for name in names]
    assert {"Alpona\tAlpona\tBoishakhi", "Bijoy\tBijoy\tSutonnyMJ",
            "Proshika\tProshika\tAdarshaLipiNormal"} <= set(lines)
    for line in lines:
        assert (zorvak.folder / "Font conversion Table" / (line.split("\t")[1] + ".tbl")).exists()
