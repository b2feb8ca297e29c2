"""What was measured, on which machine, with which tools."""

import datetime
import re
import subprocess
from pathlib import Path

PEER_PACKAGES = ("libstdc++6", "libc6", "libabsl-dev", "libfmt-dev", "libspdlog-dev",
                 "libhowardhinnant-date-dev", "qtbase5-dev", "libglib2.0-dev", "liblwip-dev",
                 "coreutils")


def output(*command):
    """What a command writes."""
    return subprocess.run(command, text=True, stdout=subprocess.PIPE, check=True).stdout


def first_line(*command):
    """Its first line."""
    return output(*command).splitlines()[0]


def compiler(preset):
    """The compiler of a build and its flags."""
    cache = Path(f"build/{preset}/CMakeCache.txt").read_text()
    entry = lambda name: re.search(rf"^{name}:\w+=(.*)$", cache, re.MULTILINE)[1]
    files = list(Path(f"build/{preset}/CMakeFiles").glob("*/CMakeCXXCompiler.cmake"))
    program = re.search(r'CMAKE_CXX_COMPILER "(.*)"', files[0].read_text())[1]
    kind = entry("CMAKE_BUILD_TYPE")
    flags = entry(f"CMAKE_CXX_FLAGS_{kind.upper()}")
    return f"{first_line(program, '--version')}, {kind} ({flags})"


def facts():
    """The lines that a reader needs to judge the figures."""
    processor = re.search(r"^model name\s*: (.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    cores = output("nproc").strip()
    debian = Path("/etc/debian_version").read_text().strip()
    packages = output("dpkg-query", "-W", "-f", "${Package} ${Version}, ", *PEER_PACKAGES)
    return [
        ("Commit", output("git", "describe", "--always", "--dirty").strip()),
        ("Date", datetime.date.today().isoformat()),
        ("Machine", f"{processor[1] if processor else 'unknown'}, {cores} cores, Debian {debian}, "
                    f"Linux {output('uname', '-r').strip()}"),
        ("Compiler", f"{compiler('bench')}; peers with -O3"),
        ("Compiler for ARM", compiler("bench-arm")),
        ("Counted by", first_line("qemu-arm", "--version")),
        ("Peers", packages.rstrip(", ")),
    ]
