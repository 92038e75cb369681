"""A small Debian system in a folder, made of packages that are installed on this machine, and of no others."""

import os
import re
import shutil
import subprocess
from pathlib import Path

DPKG = Path("/var/lib/dpkg")
# Files that no program needs are left out for speed; the folders stay, for dpkg to find.
LEFT_OUT = ("/usr/share/doc/", "/usr/share/man/", "/usr/share/info/", "/usr/share/locale/", "/usr/share/lintian/")
# Runs in a mount namespace of its own, which takes the mounts along when it ends.
ENTER = 'mount --rbind /dev "$0/dev" && mount --rbind /proc "$0/proc" && exec chroot "$0" "$@"'
# As whoever we are, and as the root user of a namespace.
WAYS = (["--mount"], ["--mount", "--user", "--map-root-user"])
BARE = {"PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin", "LANG": "C.UTF-8"}


class NotHere(Exception):
    """This machine does not let us work in another root; says why."""


class Installed:
    """What is installed on this machine, as dpkg has it."""

    def __init__(self):
        self._stanzas = {}
        for text in (DPKG / "status").read_text(encoding="utf-8").strip().split("\n\n"):
            stanza = Stanza(text)
            if stanza.is_installed:
                for name in stanza.names:
                    self._stanzas.setdefault(name, stanza)

    def essential(self):
        return [stanza for stanza in set(self._stanzas.values()) if stanza.is_essential]

    def named(self, names):
        return [self._first([name], None) for name in names]

    def closure(self, stanzas):
        """These and everything that they depend on. The first alternative that is installed counts."""
        found = {}
        waiting = list(stanzas)
        while waiting:
            stanza = waiting.pop()
            if stanza.key not in found:
                found[stanza.key] = stanza
                waiting += [self._first(alternatives, stanza) for alternatives in stanza.dependencies]
        return list(found.values())

    def depended_on(self, package):
        """What a package that is not installed depends on, and what that needs."""
        return self.closure([self._first(alternatives, package) for alternatives in package.dependencies])

    def _first(self, alternatives, depending):
        for name in alternatives:
            if name in self._stanzas:
                return self._stanzas[name]
        asking = depending.key if depending else "The test"
        raise LookupError(f"{asking} needs {' or '.join(alternatives)}, which is not installed on this machine.")


class Stanza:
    """One package as dpkg describes it."""

    def __init__(self, text):
        self.text = text
        self._fields = dict(re.findall(r"^([A-Za-z-]+):[ \n](.*(?:\n[ \t].*)*)", text, re.MULTILINE))
        self.key = self._fields["Package"]

    @classmethod
    def of_file(cls, package):
        return cls(_output("dpkg-deb", "--field", package))

    @property
    def is_installed(self):
        return self._fields.get("Status") == "install ok installed"

    @property
    def is_essential(self):
        return self._fields.get("Essential") == "yes"

    @property
    def names(self):
        """Its own and those that it provides."""
        return [self.key] + [names[0] for names in _relations(self._fields.get("Provides", ""))]

    @property
    def dependencies(self):
        """For each dependency the names of which one is enough."""
        return [names for field in ("Pre-Depends", "Depends") for names in _relations(self._fields.get(field, ""))]

    @property
    def records(self):
        """dpkg's own files about an installed package."""
        architecture = self._fields["Architecture"]
        by_name = [*(DPKG / "info").glob(f"{self.key}.*"), *(DPKG / "info").glob(f"{self.key}:{architecture}.*")]
        return [file for file in by_name if file.name.rpartition(".")[0].partition(":")[0] == self.key]


class CleanRoot:
    """The system in `folder`, which must be empty. Programs run in it as its root user, with nothing but the
    environment that they are given."""

    def __init__(self, folder, stanzas):
        self.folder = folder
        for name in ("dev", "proc", "tmp", "root", "etc", "var/lib/dpkg/info", "var/lib/dpkg/updates",
                     "var/lib/dpkg/triggers", "var/log"):
            (folder / name).mkdir(parents=True)
        shutil.copy2(DPKG / "info/format", folder / "var/lib/dpkg/info")
        self._link_merged_folders()
        for stanza in stanzas:
            self._take(stanza)
        (folder / "etc/passwd").write_text("root:x:0:0:root:/root:/bin/sh\n", encoding="ascii")
        (folder / "etc/group").write_text("root:x:0:\n", encoding="ascii")
        (folder / "var/lib/dpkg/status").write_text("".join(f"{stanza.text}\n\n" for stanza in stanzas),
                                                    encoding="utf-8")
        self._way = self._find_way()
        # As the packages' own scripts would.
        self.run("ldconfig")
        self.run("fc-cache")

    def command(self, *arguments):
        """What to start to run a program in here; the process becomes that program."""
        return self._command(self._way, *map(str, arguments))

    def run(self, *arguments):
        """Runs a program to its end and returns what it printed; raises when it fails."""
        answer = subprocess.run(self.command(*arguments), env=BARE, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        if answer.returncode != 0:
            raise RuntimeError(f"{' '.join(map(str, arguments))} failed:\n{answer.stdout}")
        return answer.stdout

    def listing(self):
        """Every path but those of the mounts, with what tells one version of a file from another."""
        found = {}
        for folder, folders, files in os.walk(self.folder):
            here = Path(folder)
            if here == self.folder:
                folders[:] = [name for name in folders if name not in ("dev", "proc")]
            for name in folders + files:
                path = here / name
                status = path.lstat()
                size = 0 if path.is_dir() else status.st_size
                found[str(path.relative_to(self.folder))] = (oct(status.st_mode), size)
        return found

    def _link_merged_folders(self):
        for name in ("bin", "sbin", "lib", "lib32", "lib64", "libx32"):
            original = Path("/") / name
            if original.is_symlink():
                target = os.readlink(original)
                (self.folder / target.lstrip("/")).mkdir(parents=True, exist_ok=True)
                (self.folder / name).symlink_to(target)

    def _take(self, stanza):
        for record in stanza.records:
            shutil.copy2(record, self.folder / "var/lib/dpkg/info")
            if record.suffix == ".list":
                for path in record.read_text(encoding="utf-8").split("\n"):
                    self._copy(Path(path))

    def _copy(self, original):
        copy = self.folder / str(original).lstrip("/")
        if os.path.lexists(copy) or not os.path.lexists(original):
            return
        if original.is_dir() and not original.is_symlink():
            copy.mkdir(parents=True)
        elif not str(original).startswith(LEFT_OUT):
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(original, copy, follow_symlinks=False)

    def _command(self, way, *arguments):
        return ["unshare", *way, "sh", "-c", ENTER, str(self.folder), *arguments]

    def _find_way(self):
        for way in WAYS:
            answer = subprocess.run(self._command(way, "true"), env=BARE, capture_output=True, text=True, check=False)
            if answer.returncode == 0:
                return way
        raise NotHere(f"This machine does not let us enter another root: {answer.stderr.strip()}")


def _relations(field):
    """"a (>= 1), b | c:any" as [["a"], ["b", "c"]]."""
    return [[re.match(r"[^\s:(]+", alternative.strip())[0] for alternative in relation.split("|")]
            for relation in field.split(",") if relation.strip()]


def _output(*arguments):
    return subprocess.run(arguments, stdout=subprocess.PIPE, text=True, check=True).stdout
