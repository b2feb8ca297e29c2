"""What the documents in docs/ say that this tree or its compiler can tell."""
