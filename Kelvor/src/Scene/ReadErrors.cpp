#include "ReadErrors.h"

#include <Inventor/errors/SoReadError.h>

#include <QRegularExpression>

#include <utility>

namespace {

constexpr int maxErrors = 100;
constexpr int maxErrorLength = 300;

/// Coin's message without its prefix, on one line, with the place in brackets.
QString readable(const SoError& error)
{
    static const QRegularExpression place(QStringLiteral("Occurred at (line|position)\\s+(\\d+) in .*"),
                                          QRegularExpression::DotMatchesEverythingOption);
    QString text = QString::fromUtf8(error.getDebugString().getString());
    const QRegularExpressionMatch found = place.match(text);
    if (found.hasMatch())
        text.truncate(found.capturedStart());
    text.remove(QStringLiteral("Coin read error: "));
    text = text.simplified();
    if (text.endsWith(u'.'))
        text.chop(1);
    if (text.size() > maxErrorLength)
        text = text.left(maxErrorLength) + u'…';
    if (found.hasMatch())
        text += QStringLiteral(" (%1 %2)").arg(found.captured(1), found.captured(2));
    return text;
}

struct Access : SoError
{
    static SoErrorCB* defaultHandler() { return &SoError::defaultHandlerCB; }
};

} // namespace

ReadErrors::ReadErrors(std::function<bool()> isHeard)
    : m_isHeard(std::move(isHeard))
    , m_callback(SoReadError::getHandlerCallback())
    , m_data(SoReadError::getHandlerData())
{
    SoReadError::setHandlerCallback(collect, this);
}

ReadErrors::~ReadErrors()
{
    SoReadError::setHandlerCallback(m_callback, m_data);
}

void ReadErrors::collect(const SoError* error, void* data)
{
    auto* self = static_cast<ReadErrors*>(data);
    if (self->m_isHeard && !self->m_isHeard())
        return;
    if (self->errors.size() < maxErrors)
        self->errors << readable(*error);
    if (self->m_callback && self->m_callback != Access::defaultHandler())
        self->m_callback(error, self->m_data);
}
