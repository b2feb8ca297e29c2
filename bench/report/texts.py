"""Numbers and tables as texts."""


def number(value):
    """At most three digits that count: 0.35, 1.07, 12.3, 671, 8,451."""
    if value is None:
        return ""
    for limit, digits in ((10, 2), (100, 1)):
        if abs(value) < limit:
            return f"{value:.{digits}f}"
    return f"{value:,.0f}"


def duration(time_ns):
    """A time with its unit."""
    if time_ns is None:
        return ""
    for limit, unit in ((1e3, "ns"), (1e6, "µs"), (1e9, "ms")):
        if time_ns < limit:
            return f"{number(time_ns / limit * 1e3)} {unit}"
    return f"{number(time_ns / 1e9)} s"


def table(heads, lines):
    """A Markdown table; a head that ends in ':' stands over numbers, on the right."""
    align = ["---:" if head.endswith(":") else "---" for head in heads]
    rows = [[head.rstrip(":") for head in heads], align, *lines]
    return "\n".join("| " + " | ".join(row) + " |" for row in rows) + "\n"
