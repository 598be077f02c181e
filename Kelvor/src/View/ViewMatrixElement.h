#pragma once

#include <Inventor/elements/SoGLViewingMatrixElement.h>

/// The place in a drawing traversal where a view's `CameraRule` takes effect.
///
/// Separators draw their children without asking the action for its method, so an action of ours cannot
/// replace what a camera does. But each camera ends by setting the viewing matrix, after its view volume and
/// projection: here they are set again as the rule has it. Enabled for `ViewRenderAction` only.
class ViewMatrixElement : public SoGLViewingMatrixElement
{
    using inherited = SoGLViewingMatrixElement;
    SO_ELEMENT_HEADER(ViewMatrixElement);

public:
    /// Registers the type with Coin.
    static void initClass();

    void init(SoState* state) override;
    void push(SoState* state) override;

protected:
    ~ViewMatrixElement() override;
    void setElt(const SbMatrix& viewing) override;

private:
    SoState* m_state = nullptr;
};
