"""What the executable offers the terminal's other programs, kept from changing unseen."""
