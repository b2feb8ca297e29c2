"""The package mirrors of this machine's apt, asked for the terminal's architectures."""

import subprocess
import tempfile
from pathlib import Path

from board.lockfile import KERNEL


class Mirror:
    """Runs apt on a state of its own in a folder, so that the machine's own stays as it is."""

    def __init__(self, state):
        for folder in ("lists/partial", "archives/partial"):
            (state / folder).mkdir(parents=True)
        (state / "status").touch()
        settings = {
            "Dir::State": state,
            "Dir::State::Lists": state / "lists",
            "Dir::State::status": state / "status",
            "Dir::Cache": state,
            "APT::Architecture": "armhf",
            "APT::Architectures": "armhf,armel",
            "APT::Sandbox::User": "root",
            "APT::Update::Error-Mode": "any",  # an index that fails shows in the status
        }
        self._flags = [word for key, value in settings.items() for word in ("-o", f"{key}={value}")]

    def _run(self, tool, *words, **options):
        return subprocess.run([tool, *self._flags, *words], text=True, check=False, **options)

    def _ask(self, *words):
        """The lines of apt-cache's answer; none for a package that no index lists."""
        answer = self._run("apt-cache", *words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return answer.stdout.splitlines()

    def update(self):
        """Gets the indexes, those that can be had. True when that is all of them."""
        return self._run("apt-get", "-q", "update").returncode == 0

    def versions(self, name):
        """The versions that the indexes list of a package."""
        return [line.split()[1] for line in self._ask("show", name) if line.startswith("Version:")]

    def download(self, words, folder):
        """Downloads a package, "NAME" or "NAME=VERSION". Returns the file, None for a failure."""
        place = Path(tempfile.mkdtemp(dir=folder))
        if self._run("apt-get", "-q", "download", words, cwd=place).returncode != 0:
            return None
        file, = place.glob("*.deb")
        return file

    def download_newest(self, name, folder):
        """The same for the newest package that an entry of script/packages stands for."""
        if name == KERNEL:
            names = [line.split()[1] for line in self._ask("depends", "--important", name)
                     if "Depends:" in line]
            if not names:
                return None
            name = f"{names[0].partition(':')[0]}:armhf"
        return self.download(name, folder)
