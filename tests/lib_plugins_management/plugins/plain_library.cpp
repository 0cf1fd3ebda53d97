// A library, but no plugin.
int plainLibraryFunction();

int plainLibraryFunction()
{
    return 1;
}
