/*
 * The public headers as a caller compiles them: its debug information holds what no exported
 * name has in its type, above all the constants.
 */
#include "log/log.h"
#include "util/fileutils.h"
#include "util/timeutils.h"
#include "util/trstrutils.h"

/* A library without any symbol is not read. */
extern const int kAnchor;
const int kAnchor = 0;
