"""The Debian packages that script/package built: installed, used, removed and purged."""
