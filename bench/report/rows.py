"""What one row is: its goals from rows.ini, its measurements, and where it stands."""

import configparser
import re
from pathlib import Path

ROWS = Path(__file__).parent.parent / "rows.ini"
LEADS, LEVEL, FLOOR, WANTED, SHORT = (
    "leads", "level", "at its floor", "within its goal", "falls short")
LEVEL_WITHIN = 1.05  # nobody notices less, and a second run may differ by as much
FLOOR_WITHIN = 1.07
EMPTY_CALL = "an empty call"


class Row:
    """A row and, once measured, its times in ns and its instructions on ARM, per call."""

    def __init__(self, name, goals):
        self.name = name
        self.function = goals["function"]
        self.wanted = goals.getfloat("wanted")
        self.wanted_of = goals.get("wanted_of")
        self.bound = goals.get("bound")
        self.remark = goals.get("remark")
        self.arm_before = goals.getfloat("arm_before")
        self.arm_wanted = goals.getfloat("arm_wanted")
        self.arm_peer_name = goals.get("arm_peer")
        self.ours = None
        self.peers = {}      # name: ns
        self.floor = None    # ns
        self.limit = None    # ns
        self.limit_name = None
        self.arm = None
        self.arm_peer = None

    def add_time(self, way, time_ns):
        """Takes the time of one way of the row."""
        kind, _, name = way.partition(": ")
        if way == "orvatool":
            self.ours = time_ns
        elif kind == "floor":
            self.floor = time_ns
        elif kind == "limit":
            # An empty call is the limit of a row that names no other.
            if name != EMPTY_CALL or self.limit is None:
                self.limit, self.limit_name = time_ns, name
        else:
            self.peers[way] = time_ns

    def shown_limit(self):
        """The limit, or None where it says nothing because the row does so much more."""
        return self.limit if self.limit * 1000 > self.ours else None

    def best(self):
        """The name of the fastest peer."""
        return min(self.peers, key=self.peers.get)

    def ratio(self):
        """Ours to the best peer."""
        return self.ours / self.peers[self.best()]

    def wanted_ratio(self):
        """Ours to the peer that the goal names."""
        return self.ours / self.peers[self.wanted_of or self.best()]

    def standing(self):
        """Where the row stands, in one of five terms."""
        if self.ratio() < 1 / LEVEL_WITHIN:
            return LEADS
        if self.ratio() <= LEVEL_WITHIN:
            return LEVEL
        if self.wanted and self.wanted_ratio() <= self.wanted * LEVEL_WITHIN:
            return WANTED
        if self.floor and self.ours / self.floor <= FLOOR_WITHIN:
            return FLOOR
        return SHORT

    def arm_goal(self):
        """The goal in instructions, or None."""
        if self.arm_wanted is None or not self.arm_peer_name:
            return self.arm_wanted
        return self.arm_wanted * self.arm_peer if self.arm_peer else None


def load(pattern=""):
    """The rows whose names match, in the order of rows.ini."""
    goals = configparser.ConfigParser(interpolation=None)
    goals.read(ROWS)
    return {name: Row(name, goals[name]) for name in goals.sections() if re.search(pattern, name)}
