#pragma once

#include <QString>

/// Something that a console is to show.
struct ConsoleMessage
{
    /// The kinds; anything else counts as an error.
    enum Kind
    {
        Error,
        Information,
        Warning
    };
    /// A paragraph of its own, or text of a stream, which may be part of a line or several lines.
    enum Form
    {
        Paragraph,
        StreamText
    };

    QString text;
    int kind = Error;
    Form form = Paragraph;
};
