"""Lines, branches and conditions of the shipped sources: counted, reported, and all reached."""
