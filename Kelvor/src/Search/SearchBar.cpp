#include "Search/SearchBar.h"

#include <KlvExtender/KlvServices.h>

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QProgressBar>
#include <QToolButton>
#include <QUndoStack>
#include <QVBoxLayout>

#include <utility>

namespace {

using State = TreeSearch::State;

constexpr int typingPause = 200;    // ms
constexpr int patience = 200;       // ms until a search is shown to be running
constexpr int displayInterval = 50; // ms
constexpr int progressSteps = 1000;

QColor blend(const QColor& one, const QColor& other, float share)
{
    const auto mixed = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mixed(one.redF(), other.redF()), mixed(one.greenF(), other.greenF()),
                            mixed(one.blueF(), other.blueF()));
}

} // namespace

SearchBar::SearchBar(QWidget* parent)
    : QWidget(parent)
    , m_line(new QLineEdit(this))
    , m_label(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_previous(new QToolButton(this))
    , m_next(new QToolButton(this))
    , m_stop(new QToolButton(this))
{
    m_line->setClearButtonEnabled(true);
    m_line->setPlaceholderText(tr("Find, e.g. type:Material is:set"));
    m_line->setAccessibleName(tr("Find nodes"));
    m_line->setToolTip(SearchQuery::help());
    m_line->setWhatsThis(SearchQuery::help());
    m_line->installEventFilter(this);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->hide();
    m_progress->setRange(0, progressSteps);
    m_progress->setTextVisible(false);
    m_progress->setFixedHeight(3);
    m_progress->setAccessibleName(tr("Progress of the search"));
    QSizePolicy policy = m_progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(policy);
    m_progress->hide();
    m_stop->setText(tr("Stop"));
    m_stop->setToolTip(tr("Stop the search (Esc)"));
    m_stop->setAutoRaise(true);
    m_stop->hide();
    m_label->setMinimumHeight(m_stop->sizeHint().height()); // the tree does not jump when the button comes
    addSteps();

    auto* top = new QHBoxLayout;
    top->setSpacing(2);
    top->addWidget(m_line, 1);
    top->addWidget(m_previous);
    top->addWidget(m_next);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_label, 1);
    bottom->addWidget(m_stop);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 0);
    layout->setSpacing(1);
    layout->addLayout(top);
    layout->addWidget(m_progress);
    layout->addLayout(bottom);

    m_typing.setSingleShot(true);
    m_typing.setInterval(typingPause);
    connect(&m_typing, &QTimer::timeout, this, [this] {
        if (line() != m_searched) // a blank that was typed is no reason to go back to the first match
            search(true);
    });
    connect(m_line, &QLineEdit::textChanged, this, &SearchBar::edited);
    connect(m_stop, &QToolButton::clicked, &m_steps.search(), &TreeSearch::cancel);
    connect(&m_steps, &MatchSteps::progressed, this, &SearchBar::followSearch);
    connect(&m_steps, &MatchSteps::chosen, this, &SearchBar::matchChosen);
    connect(KlvServices::getInstance()->getUndoStack(), &QUndoStack::indexChanged, this, &SearchBar::outdate);
    showState();
}

void SearchBar::addSteps()
{
    const auto add = [this](QToolButton* button, Qt::ArrowType arrow, const QString& text,
                            const QKeySequence& keys, int direction) {
        auto* action = new QAction(text, this);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, [this, direction] { step(direction); });
        action->setEnabled(false);
        addAction(action);
        button->setDefaultAction(action);
        button->setArrowType(arrow);
        button->setAutoRaise(true);
        button->setAccessibleName(text);
    };
    add(m_previous, Qt::UpArrow, tr("Previous Match"), Qt::SHIFT | Qt::Key_F3, -1);
    add(m_next, Qt::DownArrow, tr("Next Match"), Qt::Key_F3, 1);
}

void SearchBar::setRoot(SoNode* root)
{
    m_root = root;
    if (!m_searched.isEmpty())
        search(false);
}

void SearchBar::setPosition(const std::optional<QList<int>>& path)
{
    m_steps.setPosition(path);
    showState();
}

void SearchBar::edit()
{
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

bool SearchBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_line && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (keyPressed(key->key(), key->modifiers() & ~Qt::KeypadModifier))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool SearchBar::keyPressed(int key, Qt::KeyboardModifiers modifiers)
{
    const struct
    {
        int key;
        Qt::KeyboardModifiers modifiers;
        int direction; ///< 0 for Esc
    } keys[] = {
        {Qt::Key_Return, Qt::NoModifier, 1}, {Qt::Key_Return, Qt::ShiftModifier, -1},
        {Qt::Key_Enter, Qt::NoModifier, 1},  {Qt::Key_Enter, Qt::ShiftModifier, -1},
        {Qt::Key_Down, Qt::NoModifier, 1},   {Qt::Key_Up, Qt::NoModifier, -1},
        {Qt::Key_Escape, Qt::NoModifier, 0},
    };
    for (const auto& each : keys) {
        if (each.key != key || each.modifiers != modifiers)
            continue;
        if (each.direction)
            step(each.direction);
        else
            escape();
        return true;
    }
    return false;
}

void SearchBar::escape()
{
    if (m_steps.search().state() == State::Running)
        m_steps.search().cancel();
    else if (!m_line->text().isEmpty())
        m_line->clear();
    else
        Q_EMIT left();
}

QString SearchBar::line() const
{
    return m_line->text().trimmed();
}

void SearchBar::edited()
{
    for (QAction* action : actions())
        action->setEnabled(!line().isEmpty());
    if (line().isEmpty())
        search(false);
    else
        m_typing.start();
}

void SearchBar::search(bool choose)
{
    m_typing.stop();
    m_searched = line();
    const SearchQuery query(m_searched);
    m_error = query.error();
    m_started.start();
    m_shown.invalidate();
    m_steps.start(m_root, query, choose);
    followSearch();
}

void SearchBar::followSearch()
{
    const bool running = m_steps.search().state() == State::Running;
    if (running && m_shown.isValid() && !m_shown.hasExpired(displayInterval))
        return;
    m_shown.start();
    showState();
    Q_EMIT matchesChanged();
}

void SearchBar::step(int direction)
{
    m_typing.stop();
    if (line() == m_searched)
        m_steps.step(direction);
    else
        search(true);
}

void SearchBar::showState()
{
    const bool running = m_steps.search().state() == State::Running;
    const bool busy = running && m_started.hasExpired(patience);
    m_progress->setVisible(busy);
    m_progress->setValue(static_cast<int>(m_steps.search().progress() * progressSteps));
    m_stop->setVisible(busy);
    const QString text = stateText();
    m_label->setText(text);
    m_label->setToolTip(m_error);
    m_line->setAccessibleDescription(text);
    m_label->setVisible(!text.isEmpty());
    setWarning(!m_error.isEmpty() ||
               (m_steps.search().state() == State::Finished && m_steps.search().matches().empty()));
}

QString SearchBar::stateText() const
{
    const auto& matches = m_steps.search().matches();
    const State state = m_steps.search().state();
    if (state == State::Idle)
        return m_error;
    if (matches.empty())
        return state == State::Running    ? tr("Searching…")
               : state == State::Finished ? tr("No match")
                                          : tr("Stopped");
    const QLocale locale;
    QString total = locale.toString(static_cast<qulonglong>(matches.size()));
    if (state == State::Running)
        total += QChar(0x2026);
    else if (state == State::Paused)
        total += QLatin1Char('+');
    const auto current = m_steps.current();
    const QString text = current ? tr("%1 of %2").arg(locale.toString(qulonglong(*current) + 1), total)
                         : matches.size() == 1 && state != State::Running ? tr("1 match")
                                                                          : tr("%1 matches").arg(total);
    return state == State::Cancelled ? tr("%1, stopped").arg(text) : text;
}

void SearchBar::setWarning(bool warning)
{
    if (std::exchange(m_warning, warning) != warning)
        showTint();
}

void SearchBar::showTint()
{
    QPalette tinted; // unset, it follows the theme
    if (m_warning)
        tinted.setColor(QPalette::Base, blend(palette().color(QPalette::Base), QColor(220, 40, 40), 0.25F));
    m_line->setPalette(tinted);
}

void SearchBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        showTint();
    QWidget::changeEvent(event);
}
