#include <KlvExtender/KlvShell.h>

namespace {

KlvShell* g_instance = nullptr;

} // namespace

KlvShell* KlvShell::getInstance()
{
    return g_instance;
}

KlvShell::KlvShell()
{
    g_instance = this;
}

KlvShell::~KlvShell()
{
    if (g_instance == this)
        g_instance = nullptr;
}
