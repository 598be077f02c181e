#pragma once

class SoFieldContainer;

/// A counted reference to a field container for as long as the object lives. All references of the framework
/// are made with it, so that it can tell whether anybody else still holds a container.
class ContainerRef
{
public:
    ContainerRef() = default;
    /// Null is allowed and references nothing.
    explicit ContainerRef(SoFieldContainer* container);
    ~ContainerRef();

    ContainerRef(ContainerRef&& other) noexcept;
    ContainerRef& operator=(ContainerRef&& other) noexcept;

    SoFieldContainer* get() const { return m_container; }

    /// True when somebody other than the framework holds a reference to `container`.
    static bool isHeldElsewhere(const SoFieldContainer* container);

private:
    SoFieldContainer* m_container = nullptr;
};
