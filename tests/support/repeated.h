// The same elements several times over.
#ifndef TESTS_SUPPORT_REPEATED_H
#define TESTS_SUPPORT_REPEATED_H

// Of lists and of texts.
template <typename List>
List Repeated(unsigned int times, const List& part) {
    List all;
    for (unsigned int i = 0; i < times; ++i) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

#endif
