#include <Kelvor/KelvorInspector.h>

KelvorInspector::KelvorInspector(SoNode*) {}
KelvorInspector::~KelvorInspector() = default;

KelvorInspector* KelvorInspector::inspect(SoNode*)
{
    return nullptr;
}

KelvorInspector* KelvorInspector::getInstance()
{
    return nullptr;
}

QWidget* KelvorInspector::window() const
{
    return nullptr;
}

SoNode* KelvorInspector::root() const
{
    return nullptr;
}

void KelvorInspector::close() {}
