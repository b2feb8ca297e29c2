// Several pointers asked at once: a missing argument must never end the caller.
#ifndef UTIL_NULL_H
#define UTIL_NULL_H

template <typename... T>
constexpr bool AnyNull(const T*... pointers) {
    return ((pointers == nullptr) || ...);
}

#endif
