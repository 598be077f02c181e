#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbString.h>

#include <QByteArray>
#include <QString>

/// Conversions between Coin's byte strings, which hold UTF-8 here, and the text of Qt.

/// The text of a string. Bytes that are no valid UTF-8 become lone surrogates (U+DC80 to U+DCFF), so that
/// `fromUtf16()` gives them back as they were.
KLV_EXTENDER_EXPORT QString toUtf16(const SbString& string);

/// A string from text, the inverse of `toUtf16()`. Coin's strings end at the first NUL: NUL characters are
/// left out and what follows them is kept. Surrogates that stand for nothing become question marks.
KLV_EXTENDER_EXPORT SbString fromUtf16(const QString& text);

/// The Latin-1 form of a string; characters that Latin-1 does not have become question marks.
KLV_EXTENDER_EXPORT QByteArray toLatin1(const SbString& string);

/// A string from Latin-1 bytes, up to the first NUL.
KLV_EXTENDER_EXPORT SbString fromLatin1(const QByteArray& bytes);

/// Empties a string. Coin has no null state of its own; the empty string stands for it.
KLV_EXTENDER_EXPORT void makeNull(SbString& string);
