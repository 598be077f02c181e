#pragma once

#include "ProfileStore.h"

#include <QDialog>

class ProfileSettingsTree;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

/// Creates, renames, copies, deletes and edits profiles. Works on a copy, which OK puts into effect and
/// stores; Cancel leaves everything as it was. The profiles that come with the host can be edited, copied and
/// restored, but neither renamed nor deleted, so there is always one.
class ProfilesDialog : public QDialog
{
    Q_OBJECT

public:
    /// The store outlives the dialog.
    explicit ProfilesDialog(ProfileStore* store, QWidget* parent = nullptr);

    void accept() override;

private:
    QPushButton* addButton(QVBoxLayout* column, const QString& text, void (ProfilesDialog::*slot)());
    void addShortcut(Qt::Key key, QPushButton* button);
    ProfileStore::Entry& current();
    void insert(ProfileDescription description);
    QString uniqueName(const QString& wish) const;
    QString nameProblem() const;
    void fillList(qsizetype current);

    void create();
    void copy();
    void rename();
    void remove();
    void restore();
    void makeActive();
    void showCurrent();
    void takeName(const QString& name);
    void takeSettings();
    void updateState();

    ProfileStore* m_store;
    QList<ProfileStore::Entry> m_entries;
    qsizetype m_active = 0;

    QListWidget* m_list;
    QLineEdit* m_name;
    QLabel* m_problem;
    ProfileSettingsTree* m_settings;
    QDialogButtonBox* m_buttons;
    QPushButton* m_rename = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_restore = nullptr;
    QPushButton* m_makeActive = nullptr;
};
