#include <KlvExtender/KlvChanges.h>

class KlvChanges::Private
{
};

KlvChanges::KlvChanges()
    : d(std::make_unique<Private>())
{
}

KlvChanges::~KlvChanges() = default;

QList<SoField*> KlvChanges::getFields() const
{
    return {};
}

bool KlvChanges::isChanged(const SoField*) const
{
    return false;
}

SoField* KlvChanges::getOriginal(const SoField*) const
{
    return nullptr;
}

void KlvChanges::revert(const QList<SoField*>&) {}

void KlvChanges::restart() {}
