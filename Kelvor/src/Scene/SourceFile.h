#pragma once

#include <QDateTime>
#include <QString>

/// The file that a scene was read from or saved to, as it was then.
class SourceFile
{
public:
    /// What goes when the file is replaced by the scene as text.
    enum class Loss
    {
        None,
        Changes, ///< made by somebody else since
        Comments,
        Binary ///< the form of the file
    };

    SourceFile() = default;
    /// Notes how the file is now; to be made before it is read, so that later changes are noticed.
    explicit SourceFile(const QString& name);

    /// The worst loss. Reads the file; one that cannot be read has nothing to lose.
    Loss lossWhenReplaced() const;

private:
    QString m_name;
    QDateTime m_modified;
    qint64 m_size = 0;
};
