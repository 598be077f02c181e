#pragma once

#include <QObject>

#include <memory>
#include <vector>

class FieldWatch;
class SoField;

/// The fields that were selected in `KlvServices`, the last fifty of them, and the way back through them.
/// Fields that are destroyed drop out; none is kept alive.
class FieldTrail : public QObject
{
    Q_OBJECT

public:
    explicit FieldTrail(QObject* parent = nullptr);
    ~FieldTrail() override;

    /// The field that was selected before the one that is now; null when there is none.
    SoField* previous() const;
    /// Selects that field and forgets those after it. Does nothing when there is none.
    void back();
    void clear();

private:
    void visited(SoField* field);

    std::vector<std::unique_ptr<FieldWatch>> m_fields; // the latest is the last
};
