// Only there so that Precompiled.h has a target that is compiled.
