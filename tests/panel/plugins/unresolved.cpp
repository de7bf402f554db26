// A library that wants a function that no runtime has.
extern "C" void functionOfAnotherRuntime();

extern "C" __attribute__((visibility("default"))) void callIt()
{
    functionOfAnotherRuntime();
}
