"""The command as such: help, version, wrong usage, standard streams."""

import os
import re
import subprocess

import pytest

from conftest import ROOT

COMMANDS = ["convert", "text", "list", "plugin", "help"]


def test_without_arguments_short_usage_on_standard_error(zorvak):
    result = zorvak.run()
    assert result.code == 2
    assert result.out == b""
    assert result.err.startswith("Usage: zorvak")
    assert len(result.err.splitlines()) <= 5


@pytest.mark.parametrize("arguments", [["--help"], ["-h"], ["help"]])
def test_help_of_the_program(zorvak, arguments):
    result = zorvak.run(*arguments)
    assert result.code == 0 and result.err == ""
    for command in COMMANDS:
        assert re.search(rb"^  " + command.encode() + rb" ", result.out, re.M)


@pytest.mark.parametrize("command", COMMANDS)
def test_help_of_a_command(zorvak, command):
    by_option = zorvak.run(command, "--help")
    assert by_option.code == 0 and by_option.err == ""
    assert by_option.out.startswith(b"Usage: zorvak " + command.encode())
    assert zorvak.run("help", command).out == by_option.out
    assert zorvak.run(command, "-h").out == by_option.out
    assert b"\r" not in by_option.out
    assert all(len(line) < 80 for line in by_option.out.decode().splitlines())


def test_help_wins_over_missing_operands_and_reads_nothing(zorvak):
    assert zorvak.run("convert", "no such file.txt", "--help").code == 0
    assert zorvak.run("text", "--help", input=b"abc").out.startswith(b"Usage")


@pytest.mark.parametrize("arguments, told", [
    (["frobnicate"], "frobnicate"),
    (["Convert"], "Convert"),
    (["--frobnicate"], "--frobnicate"),
    (["help", "frobnicate"], "frobnicate"),
    (["help", "convert", "text"], "help"),
    (["convert", "--frobnicate", "a.txt"], "--frobnicate"),
    (["convert", "a.txt", "--from"], "--from"),
    (["convert", "a.txt", "--keep-going=yes"], "--keep-going"),
    (["convert", "a.txt", "--suffix", "x", "--suffix=y"], "twice"),
    (["list", "more"], "list"),
    (["list", "--frobnicate"], "--frobnicate"),
    (["text", "--frobnicate"], "--frobnicate"),
    (["plugin", "--frobnicate"], "--frobnicate"),
    (["plugin", "frobnicate"], "frobnicate"),
])
def test_wrong_usage(zorvak, arguments, told):
    result = zorvak.run(*arguments)
    assert result.code == 2, result
    assert result.out == b""
    assert result.err.startswith("zorvak: ") and told in result.err and "--help" in result.err


def test_version_is_the_projects(zorvak):
    version = re.search(r"project\(zorvak VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text()).group(1)
    result = zorvak.run("--version")
    assert (result.code, result.out, result.err) == (0, f"zorvak {version}\n".encode(), "")


def test_both_programs_say_the_same(both):
    for arguments in [[], ["--help"], ["--version"], ["bad"]] + [["help", command] for command in COMMANDS]:
        one, other = (program.run(*arguments) for program in both)
        assert (one.code, one.out, one.err) == (other.code, other.out, other.err)


def test_output_that_cannot_be_written_is_a_failure(zorvak):
    with open("/dev/full", "wb") as full:
        result = zorvak.run("--help", stdout=full)
    assert result.code == 3
    assert result.err.startswith("zorvak: standard output: ")


def test_a_reader_that_has_gone_is_no_reason_for_a_message(zorvak):
    read, write = os.pipe()
    os.close(read)
    try:
        result = zorvak.run("--help", stdout=write)
    finally:
        os.close(write)
    assert result.code == 3
    assert result.err == ""


def test_a_closed_stream_is_never_taken_for_a_file(native, example, tmp_path):
    # Without standard output and standard error the files that are opened must not get their numbers.
    (tmp_path / "a.txt").write_bytes(b"k\r\n")
    command = native.command("convert", "--plugin", example, tmp_path / "a.txt")
    completed = subprocess.run(["sh", "-c", '"$@" >&- 2>&- <&-', "sh"] + command, timeout=60)
    assert completed.returncode == 1  # what was done could not be told
    assert (tmp_path / "a- Unicode.txt").read_bytes() == b"\xff\xfe\x95\x09\r\x00\n\x00"


def test_options_are_not_taken_from_the_environment_or_locale(native):
    for locale in ["C", "C.UTF-8", "xx_XX"]:
        result = native.run("help", "\u0995", env={**os.environ, "LC_ALL": locale})
        assert "'\u0995'" in result.err
