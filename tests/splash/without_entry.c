// A library that is no image manager.

int SomethingElse(void);

int SomethingElse(void) {
    return 0;
}
