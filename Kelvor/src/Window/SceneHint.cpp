#include "SceneHint.h"

#include "View/SceneView.h"

#include <QVBoxLayout>

SceneHint::SceneHint(SceneView* view)
    : QLabel(tr("Open a scene (%1) or drop one here")
                 .arg(QKeySequence(QKeySequence::Open).toString(QKeySequence::NativeText)))
{
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    // In place of the sentence of a view that cannot draw.
    setAutoFillBackground(!view->canDraw());
    (new QVBoxLayout(view))->addWidget(this);
}
