"""Whether the analysers would see a fault."""
