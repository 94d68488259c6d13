extern "C" void* functionThatNobodyHas();

extern "C" void* MyFactory(void*, void*)
{
    return functionThatNobodyHas();
}
