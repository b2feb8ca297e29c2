"""The library as other projects use it: installed, or built inside them."""
