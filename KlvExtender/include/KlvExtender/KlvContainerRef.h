#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <vector>

class SoField;
class SoFieldContainer;

/// A counted reference to a field container for as long as the object lives.
///
/// All references that the framework and the host hold on nodes of an inspected graph are made with it, so
/// that it can be told whether anybody else still holds a container: an application may delete what is being
/// inspected, and the inspector then has to let go of it as well. User-interface thread only.
class KLV_EXTENDER_EXPORT KlvContainerRef
{
public:
    KlvContainerRef() = default;
    /// Null is allowed and references nothing.
    explicit KlvContainerRef(SoFieldContainer* container);
    ~KlvContainerRef();

    KlvContainerRef(KlvContainerRef&& other) noexcept;
    KlvContainerRef& operator=(KlvContainerRef&& other) noexcept;

    /// Counts as the inspector's own a reference that a group of its own, or something else of its own, holds
    /// on the container; adds none. Must go before that reference does.
    static KlvContainerRef countingOther(SoFieldContainer* container);

    /// The same for every node and engine that a field, a copy of the inspector's own, refers to.
    static std::vector<KlvContainerRef> countingAllOf(const SoField& field);

    SoFieldContainer* get() const { return m_container; }

    /// True when somebody other than the inspector holds a reference to `container`.
    static bool isHeldElsewhere(const SoFieldContainer* container);

private:
    SoFieldContainer* m_container = nullptr;
    bool m_owns = true; ///< the reference, not only its place in the count
};
