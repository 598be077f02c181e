#pragma once

#include <type_traits>
#include <utility>

/// An editor of a kind of field whose value is a vector: `Base` is the family that it belongs to, `Field` the
/// kind.
template <typename Base, typename Field>
class DvSFVectorWidget : public Base
{
protected:
    using Component = typename Base::Component;

    /// Takes what the family's constructor takes, but for the kind.
    template <typename... Arguments>
    explicit DvSFVectorWidget(Arguments&&... arguments)
        : Base(Field::getClassTypeId(), std::forward<Arguments>(arguments)...)
    {
    }

    void getComponents(Component* components) const override
    {
        const Vector& vector = field()->getValue();
        for (int i = 0; i < count; ++i)
            components[i] = vector[i];
    }

    bool setComponents(const Component* components) override
    {
        Vector vector;
        for (int i = 0; i < count; ++i)
            vector[i] = static_cast<Element>(components[i]);
        field()->setValue(vector);
        return true;
    }

private:
    using Vector = std::decay_t<decltype(std::declval<Field>().getValue())>;
    using Element = std::decay_t<decltype(std::declval<Vector>()[0])>;
    static constexpr int count = sizeof(Vector) / sizeof(Element);

    Field* field() const { return static_cast<Field*>(this->m_field); }
};
