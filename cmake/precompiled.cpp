// A library needs a source; this one only holds a precompiled header.
