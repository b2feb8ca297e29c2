"""The tests of the commands in script/."""
