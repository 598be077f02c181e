#include "Appearance.h"

#include "HostSettings.h"

#include <QActionGroup>
#include <QApplication>
#include <QPalette>

#include <functional>

namespace {

const QString key = QStringLiteral("colors");

QColor mixed(const QColor& one, const QColor& other)
{
    return QColor::fromRgbF((one.redF() + other.redF()) / 2, (one.greenF() + other.greenF()) / 2,
                            (one.blueF() + other.blueF()) / 2);
}

QPalette plainPalette(const QColor& window, const QColor& base, const QColor& text, const QColor& highlight)
{
    QPalette palette(window, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, mixed(base, window));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, highlight);
    QColor faint = text;
    faint.setAlphaF(0.5f);
    palette.setColor(QPalette::PlaceholderText, faint);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, mixed(window, text));
    return palette;
}

struct Choice
{
    const char* name;
    const char* text;
    std::function<QPalette()> palette;
};

const Choice choices[] = {
    {"system", QT_TRANSLATE_NOOP("Appearance", "As the &System"), [] { return QPalette(); }},
    {"light", QT_TRANSLATE_NOOP("Appearance", "&Light"),
     [] {
         return plainPalette(QColor(0xef, 0xef, 0xef), Qt::white, QColor(0x1a, 0x1a, 0x1a),
                             QColor(0x2a, 0x6f, 0xc9));
     }},
    {"dark", QT_TRANSLATE_NOOP("Appearance", "&Dark"),
     [] {
         // Boxes have outlines that are darker than the window: only a lighter base shows that they are
         // there.
         return plainPalette(QColor(0x2b, 0x2d, 0x30), QColor(0x3c, 0x3f, 0x44), QColor(0xdf, 0xe1, 0xe5),
                             QColor(0x3d, 0x7d, 0xd6));
     }},
};

} // namespace

Appearance::Appearance(QWidget* parent)
    : QMenu(tr("&Colors"), parent)
    , m_choices(new QActionGroup(this))
{
    for (const Choice& choice : choices) {
        QAction* action = addAction(tr(choice.text));
        action->setCheckable(true);
        action->setData(QString::fromLatin1(choice.name));
        m_choices->addAction(action);
    }
    connect(m_choices, &QActionGroup::triggered, this, [this](QAction* action) {
        const QString name = action->data().toString();
        HostSettings().setValue(key, name);
        choose(name);
    });
    choose(qEnvironmentVariable("KELVOR_COLORS", HostSettings().value(key).toString()).toLower());
}

void Appearance::choose(const QString& name)
{
    for (const Choice& choice : choices) {
        if (name != QLatin1String(choice.name))
            continue;
        m_choices->actions().at(&choice - choices)->setChecked(true);
        QApplication::setPalette(choice.palette());
        return;
    }
    m_choices->actions().constFirst()->setChecked(true);
}
