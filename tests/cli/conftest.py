"""Command-line tests: one suite for both programs.

ZORVAK_NATIVE   path of zorvak
ZORVAK_WINDOWS  path of zorvak.exe, run under Wine (inside tools/wine-session)

Each program has its data folders beside it. One whose variable is not set has no tests.
"""

import os
import pathlib
import pty
import shutil
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
VARIABLES = {"native": "ZORVAK_NATIVE", "windows": "ZORVAK_WINDOWS"}

# The table of a made-up encoding: reph marker, ya-phala marker, then the rules.
EXAMPLE_RULES = [("kh", "\u0996"), ("k", "\u0995"), ("a", "\u09be"), ("e", "\u09c7"), ("^", "\ue001"),
                 ("~", "\ue002"), ("*", "\u0981"), ("A", "\u0985"), ("r", "\u09b0")]
EXAMPLE_LEGACY = "ek^a k*~a Aa r~"
EXAMPLE_UNICODE = ("\u09b0\u09cd\u0995\u09cb \u0995\u09cd\u09af\u09be\u0981 \u0986 "
                   "\u09b0\u200c\u09cd\u09af")
# A reph marker with nothing but a sign in front of it: the scan runs off the line, failure 5.
FAILING_LINE = "a^"


def plain_table(rules, reph="\ue001", ya_phala="\ue002"):
    return "\n".join([reph, ya_phala] + [f"{find}\t{replace}" for find, replace in rules]).encode()


class Result:
    def __init__(self, completed):
        self.code = completed.returncode
        self.out = completed.stdout
        self.err = completed.stderr.decode("utf-8", "replace") if completed.stderr is not None else None

    def __repr__(self):
        return f"exit {self.code}\nstdout: {self.out!r}\nstderr: {self.err}"


class Program:
    """One of the two programs. Path objects among the arguments become paths as it knows them."""

    def __init__(self, kind, path):
        self.kind = kind
        self.path = pathlib.Path(path).resolve()
        self.windows = kind == "windows"

    @property
    def folder(self):
        return self.path.parent

    def name(self, path):
        """path as the program spells it."""
        if not self.windows:
            return str(path)
        return "Z:" + str(path).replace("/", "\\") if os.path.isabs(path) else str(path).replace("/", "\\")

    def path_of(self, name):
        """A path that the program printed, as this system spells it."""
        if not self.windows:
            return pathlib.Path(name)
        assert name[:3].upper() == "Z:\\", name
        return pathlib.Path(name[2:].replace("\\", "/"))

    def command(self, *arguments):
        def known(argument):
            return self.name(argument) if isinstance(argument, pathlib.PurePath) else argument
        start = [str(ROOT / "tools/wine-run"), str(self.path)] if self.windows else [str(self.path)]
        return start + [known(argument) for argument in arguments]

    def run(self, *arguments, input=b"", **more):
        more.setdefault("stdout", subprocess.PIPE)
        more.setdefault("stderr", subprocess.PIPE)
        more.setdefault("timeout", 120)
        if "stdin" not in more:
            more["input"] = input
        return Result(subprocess.run(self.command(*arguments), **more))

    def results(self, result):
        """What `convert` printed: pairs of source and result."""
        pairs = []
        for line in result.out.decode("utf-8", "surrogateescape").splitlines():
            source, arrow, made = line.partition(" -> ")
            assert arrow, line
            pairs.append((self.path_of(source), self.path_of(made)))
        return pairs

    def installed_in(self, folder, plugins=(), ini=None):
        """A copy of the program in a folder of its own, with these plug-ins beside it."""
        folder.mkdir(parents=True, exist_ok=True)
        copy = folder / self.path.name
        shutil.copy2(self.path, copy)
        if plugins is not None:
            (folder / "conversion Plugins").mkdir()
            for plugin in plugins:
                shutil.copy2(plugin, folder / "conversion Plugins")
        if ini is not None:
            (folder / "Plugin.INI").write_bytes(ini)
        return Program(self.kind, copy)


def program_of(kind):
    path = os.environ.get(VARIABLES[kind])
    if not path:
        pytest.fail(f"{VARIABLES[kind]} is not set")
    return Program(kind, path)


def pytest_collection_modifyitems(config, items):
    """Only the tests whose programs are set."""
    def needs(item):
        needed = {"native", "windows"} if "both" in item.fixturenames else {"native", "windows"} & {*item.fixturenames}
        if "zorvak" in item.fixturenames:
            needed.add(item.callspec.params["zorvak"])
        return needed
    absent = {kind for kind, variable in VARIABLES.items() if not os.environ.get(variable)}
    if absent == set(VARIABLES):
        raise pytest.UsageError(" or ".join(VARIABLES.values()) + " must be set")
    left_out = [item for item in items if needs(item) & absent]
    config.hook.pytest_deselected(items=left_out)
    items[:] = [item for item in items if item not in left_out]


@pytest.fixture(params=["native", "windows"])
def zorvak(request):
    return program_of(request.param)


@pytest.fixture
def native():
    return program_of("native")


@pytest.fixture
def windows():
    return program_of("windows")


@pytest.fixture
def both():
    """Both programs, for tests that compare them."""
    return program_of("native"), program_of("windows")


@pytest.fixture(scope="session")
def _built(tmp_path_factory):
    return {"folder": tmp_path_factory.mktemp("plugins")}


def build_plugin(program, folder, name, table):
    """A plug-in from a plain table (bytes), built by the program itself."""
    source, made = folder / (name + ".txt"), folder / (name + ".dll")
    source.write_bytes(table)
    result = program.run("plugin", "build", "--plain", source, made)
    assert result.code == 0, result
    source.unlink()
    return made


@pytest.fixture
def example(_built):
    """The plug-in of the made-up encoding; both programs make the same bytes of it."""
    if "example" not in _built:
        kind = "native" if os.environ.get(VARIABLES["native"]) else "windows"
        _built["example"] = build_plugin(program_of(kind), _built["folder"], "Example", plain_table(EXAMPLE_RULES))
    return _built["example"]


@pytest.fixture
def unprivileged():
    """The start of a command line that takes root's rights away; empty where there are none."""
    if os.geteuid() != 0:
        return []
    assert shutil.which("setpriv"), "setpriv is missing, and root feels no file rights"
    return ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]


@pytest.fixture
def open_folder(tmp_path_factory):
    """A folder that every user can reach (pytest's own are closed to others)."""
    import tempfile
    folder = pathlib.Path(tempfile.mkdtemp(prefix="zc-cli-", dir="/tmp"))
    folder.chmod(0o777)
    yield folder
    for path in folder.rglob("*"):
        if path.is_dir() and not path.is_symlink():
            path.chmod(0o777)
    shutil.rmtree(folder, ignore_errors=True)


def write(path, content):
    """A file of bytes, or of text in the code page of legacy files; its folder is made."""
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content if isinstance(content, bytes) else content.encode("cp1252"))
    return path


def names(folder):
    return sorted(path.name for path in folder.iterdir())


def utf16(text):
    """The bytes of a result: UTF-16 with its mark."""
    return b"\xff\xfe" + text.encode("utf-16-le", "surrogatepass")


def run_on_terminal(command, stream):
    """Runs command with "stdout" or "stderr" on a terminal: exit code, what the other stream got, what the
    terminal got."""
    ours, theirs = pty.openpty()
    other = {"stdout": "stderr", "stderr": "stdout"}[stream]
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, **{stream: theirs, other: subprocess.PIPE})
    os.close(theirs)
    shown = b""
    while True:
        try:
            part = os.read(ours, 65536)
        except OSError:  # the program has ended
            break
        if not part:
            break
        shown += part
    os.close(ours)
    pipe = getattr(process, other)
    with pipe:
        rest = pipe.read()
    return process.wait(60), rest, shown.decode()
