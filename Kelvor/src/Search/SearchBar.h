#pragma once

#include "Search/MatchSteps.h"

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QProgressBar;
class QToolButton;

/// The line in which people type what they look for (see `SearchQuery`), and the way through what was found.
///
/// The search starts when typing pauses and chooses its first match at once; the focus stays in the line.
/// Return and Shift+Return, Down and Up go to the next match and to the one before; Esc stops a search, then
/// clears the line, then leaves it. `actions()` are the same steps, for use outside the line.
class SearchBar : public QWidget
{
    Q_OBJECT

public:
    explicit SearchBar(QWidget* parent = nullptr);

    /// Where to look, or nowhere (null). The caller keeps it alive until another is set. What stands in the
    /// line is looked for anew, without choosing a match.
    void setRoot(SoNode* root);
    bool isMatch(const SoNode* node) const { return m_steps.search().isMatch(node); }
    /// The occurrence from which the next match is counted, if there is one.
    void setPosition(const std::optional<QList<int>>& path);

    /// The graph has changed: after the last match the search starts anew.
    void outdate() { m_steps.outdate(); }

    /// Gives the line the focus, ready for another text.
    void edit();

Q_SIGNALS:
    /// The match at the end of these child indices is to be shown.
    void matchChosen(const QList<int>& path);
    /// `isMatch()` gives other answers. At most some twenty times a second.
    void matchesChanged();
    /// Esc in an empty line.
    void left();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addSteps();
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers);
    void escape();
    QString line() const;
    void edited();
    void search(bool choose);
    void followSearch();
    void step(int direction);
    void showState();
    QString stateText() const;
    void setWarning(bool warning);
    void showTint();

    QLineEdit* m_line;
    QLabel* m_label;
    QProgressBar* m_progress;
    QToolButton* m_previous;
    QToolButton* m_next;
    QToolButton* m_stop;
    QTimer m_typing; // runs until typing has paused
    MatchSteps m_steps;
    QString m_searched; // what was last looked for
    QString m_error;
    SoNode* m_root = nullptr;
    QElapsedTimer m_started;
    QElapsedTimer m_shown; // since the state was last shown
    bool m_warning = false;
};
