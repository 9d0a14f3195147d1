"""What stands where a user unpacks it, and programs in odd places."""

import os
import subprocess

from conftest import ROOT


def stems(folder, ending):
    return {path.stem for path in (ROOT / "data" / folder).glob("*" + ending)}


def test_dist_is_what_a_windows_user_unpacks(windows):
    expected = {"zorvak.exe", "LICENSE.txt", "Plugin.INI", "Over.wav", "click.wav", "Complete.wav"}
    expected |= {f"conversion Plugins/{name}.dll" for name in stems("encodings", ".txt")}
    expected |= {f"Font conversion Table/{name}.tbl" for name in stems("fonts", ".tbl")}
    assert len(expected) >= 12
    found = {str(path.relative_to(windows.folder)) for path in windows.folder.rglob("*") if path.is_file()}
    assert found == expected
    assert (windows.folder / "LICENSE.txt").read_bytes() == (ROOT / "LICENSE").read_bytes()
    assert (windows.folder / "Plugin.INI").read_bytes() == (ROOT / "data/Plugin.INI").read_bytes()


def test_a_program_at_the_root_of_a_drive(windows, example, tmp_path):
    windows.installed_in(tmp_path, [example], ini=b"[Example]\r\nTable=Family\r\nDefault Font=Some Font\r\n")
    drive = os.path.join(os.environ["WINEPREFIX"], "dosdevices", "y:")
    os.symlink(tmp_path, drive)
    try:
        made = subprocess.run([ROOT / "tools/wine-run", "Y:\\zorvak.exe", "list"], capture_output=True, timeout=60)
    finally:
        os.unlink(drive)
    assert (made.returncode, made.stdout, made.stderr) == (0, b"Example\tFamily\tSome Font\n", b"")
