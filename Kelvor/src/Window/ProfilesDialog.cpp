#include "ProfilesDialog.h"

#include "ProfileSettingsTree.h"
#include "WindowDialogs.h"

#include <KlvExtender/KlvPluginsManager.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

ProfilesDialog::ProfilesDialog(ProfileStore* store, QWidget* parent)
    : QDialog(parent)
    , m_store(store)
    , m_entries(store->entries())
    , m_list(new QListWidget)
    , m_name(new QLineEdit)
    , m_problem(new QLabel)
    , m_settings(new ProfileSettingsTree)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("Profiles"));
    resize(760, 520);
    m_list->setAccessibleName(tr("Profiles"));
    m_problem->setWordWrap(true);

    auto* left = new QVBoxLayout;
    left->addWidget(m_list);
    m_makeActive = addButton(left, tr("Make &Active"), &ProfilesDialog::makeActive);
    addButton(left, tr("&New"), &ProfilesDialog::create);
    addButton(left, tr("&Copy"), &ProfilesDialog::copy);
    m_rename = addButton(left, tr("&Rename"), &ProfilesDialog::rename);
    m_remove = addButton(left, tr("&Delete"), &ProfilesDialog::remove);
    addShortcut(Qt::Key_F2, m_rename);
    addShortcut(Qt::Key_Delete, m_remove);

    auto* right = new QVBoxLayout;
    auto* form = new QFormLayout;
    form->addRow(tr("Na&me:"), m_name);
    right->addLayout(form);
    right->addWidget(m_settings);
    m_restore = addButton(right, tr("Re&store as Shipped"), &ProfilesDialog::restore);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 2);
    columns->addLayout(right, 5);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addWidget(m_problem);
    layout->addWidget(m_buttons);

    connect(m_buttons, &QDialogButtonBox::accepted, this, &ProfilesDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &ProfilesDialog::reject);
    connect(m_list, &QListWidget::currentRowChanged, this, &ProfilesDialog::showCurrent);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &ProfilesDialog::makeActive);
    connect(m_name, &QLineEdit::textEdited, this, &ProfilesDialog::takeName);
    connect(m_settings, &ProfileSettingsTree::edited, this, &ProfilesDialog::takeSettings);

    const KlvProfile* active = KlvPluginsManager::getInstance()->getActiveProfile();
    const auto entry = std::find_if(m_entries.cbegin(), m_entries.cend(),
                                    [active](const auto& one) { return one.profile == active; });
    m_active = entry == m_entries.cend() ? 0 : entry - m_entries.cbegin();
    fillList(m_active);
    m_list->setFocus();
}

QPushButton* ProfilesDialog::addButton(QVBoxLayout* column, const QString& text,
                                       void (ProfilesDialog::*slot)())
{
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    column->addWidget(button);
    return button;
}

void ProfilesDialog::addShortcut(Qt::Key key, QPushButton* button)
{
    auto* shortcut = new QShortcut(key, m_list);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
}

ProfileStore::Entry& ProfilesDialog::current()
{
    return m_entries[m_list->currentRow()];
}

void ProfilesDialog::fillList(qsizetype current)
{
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (const ProfileStore::Entry& entry : std::as_const(m_entries))
            m_list->addItem(entry.description.name);
        m_list->setCurrentRow(int(current));
    }
    showCurrent();
}

void ProfilesDialog::create()
{
    insert({tr("New profile"), QStringLiteral("nothing"), {}, {}, false});
}

void ProfilesDialog::copy()
{
    ProfileDescription description = current().description;
    description.name = tr("%1 copy").arg(description.name);
    insert(description);
}

void ProfilesDialog::insert(ProfileDescription description)
{
    description.name = uniqueName(description.name);
    description.isShipped = false;
    m_entries.append({description, nullptr});
    fillList(m_entries.size() - 1);
    rename();
}

QString ProfilesDialog::uniqueName(const QString& wish) const
{
    const auto isTaken = [this](const QString& name) {
        return std::any_of(m_entries.begin(), m_entries.end(),
                           [&name](const auto& one) { return one.description.name == name; });
    };
    QString name = wish;
    for (int i = 2; isTaken(name); ++i)
        name = QStringLiteral("%1 %2").arg(wish).arg(i);
    return name;
}

void ProfilesDialog::rename()
{
    m_name->setFocus();
    m_name->selectAll();
}

void ProfilesDialog::remove()
{
    const qsizetype row = m_list->currentRow();
    m_entries.removeAt(row);
    if (m_active == row)
        m_active = 0;
    else if (m_active > row)
        --m_active;
    fillList(std::min(row, m_entries.size() - 1));
    m_list->setFocus();
}

void ProfilesDialog::restore()
{
    current().description.restore();
    showCurrent();
    m_list->setFocus();
}

void ProfilesDialog::makeActive()
{
    m_active = m_list->currentRow();
    updateState();
    m_list->setFocus();
}

void ProfilesDialog::showCurrent()
{
    const ProfileDescription& description = current().description;
    m_name->setText(description.name);
    m_name->setReadOnly(description.isShipped);
    m_settings->setProfile(description);
    updateState();
}

void ProfilesDialog::takeName(const QString& name)
{
    current().description.name = name.trimmed();
    updateState();
}

void ProfilesDialog::takeSettings()
{
    // Not the name: the tree has the one that was shown first.
    current().description.choices = m_settings->profile().choices;
    current().description.withheld = m_settings->profile().withheld;
    updateState();
}

QString ProfilesDialog::nameProblem() const
{
    QStringList names;
    for (const ProfileStore::Entry& entry : m_entries) {
        const QString& name = entry.description.name;
        if (name.isEmpty())
            return tr("A profile needs a name.");
        if (names.contains(name))
            return tr("There are two profiles of the name \"%1\".").arg(name);
        names.append(name);
    }
    return QString();
}

void ProfilesDialog::updateState()
{
    for (int row = 0; row < m_list->count(); ++row) {
        const QString& name = m_entries.at(row).description.name;
        m_list->item(row)->setText(row == m_active ? tr("%1 (active)").arg(name) : name);
    }
    const ProfileDescription& description = current().description;
    m_makeActive->setEnabled(m_list->currentRow() != m_active);
    m_rename->setEnabled(!description.isShipped);
    m_remove->setEnabled(!description.isShipped);
    m_restore->setEnabled(description.isShipped && description.isChanged());
    const QString problem = nameProblem();
    m_problem->setText(problem);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(problem.isEmpty());
}

void ProfilesDialog::accept()
{
    const QString error = m_store->replace(m_entries, m_active);
    if (!error.isEmpty())
        warn(this, windowTitle(), error);
    QDialog::accept();
}
