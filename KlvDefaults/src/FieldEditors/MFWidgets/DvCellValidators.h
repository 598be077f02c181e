#pragma once

class QLineEdit;
class QObject;
class QString;
class QValidator;

/// A new validator, with this parent, for cells of a type (`DvMFieldTable::MFTableTypeCell`) of which one
/// shows `text` at present: that text can be edited character by character also where the type's own rules
/// would not let it be typed. Null for cells that take any text, as those of unknown types do.
QValidator* createCellValidator(int cellType, const QString& text, QObject* parent);

/// True when what was entered may become the element: the validator accepts it, or there is none, or it is
/// one that accepts nothing by itself (`DvOpenIntValidator`) and the text is a complete integer.
bool isCommittable(const QLineEdit* edit);
