#pragma once

#include <QString>
#include <QValidator>

#include <utility>

/// A validator, `Base`, that also lets the text that is shown at first be deleted character by character, in
/// any order, whatever is left of it meanwhile: line edits take back every deletion that leaves an invalid
/// text.
template <typename Base>
class DvShownTextValidator : public Base
{
public:
    template <typename... BaseArgs>
    explicit DvShownTextValidator(const QString& shown, BaseArgs&&... baseArgs)
        : Base(std::forward<BaseArgs>(baseArgs)...)
        , m_shown(shown)
    {
    }

    QValidator::State validate(QString& text, int& position) const override
    {
        const QValidator::State state = Base::validate(text, position);
        return state == QValidator::Invalid && isLeft(text) ? QValidator::Intermediate : state;
    }

private:
    bool isLeft(const QString& text) const
    {
        qsizetype next = 0;
        for (const QChar character : text) {
            next = m_shown.indexOf(character, next) + 1;
            if (next == 0)
                return false;
        }
        return true;
    }

    const QString m_shown;
};
