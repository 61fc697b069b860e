/// A library that is no plug-in at all.
extern "C" __attribute__((visibility("default"))) int plainFunction()
{
    return 42;
}
