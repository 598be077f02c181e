// A library like any other: no plug-in. With HALF it exports one of the two functions that make one.
class KlvPlugin;

#ifdef HALF
extern "C" __attribute__((visibility("default"))) KlvPlugin* loadPlugin()
{
    return nullptr;
}
#endif
