// The part that is never found at run time; see MissingDependency.cpp.
extern "C" __declspec(dllexport) int AbsentAnswer() {
    return 1;
}
