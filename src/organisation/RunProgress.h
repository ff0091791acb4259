#pragma once

#include <QString>
#include <functional>

namespace mosaro::base {
class ProgressSink;
}

namespace mosaro::organisation {

/// The window's progress panel for one run after the other: opened by the first report, so that a run that is
/// over before it has anything to report shows no panel.
class RunProgress {
public:
    /// Null: nothing is shown.
    explicit RunProgress(base::ProgressSink* sink) : m_sink(sink) {}

    /// What the panel opens with, before there is a figure; empty: the first report's text.
    void setTitle(const QString& title) { m_title = title; }
    /// What the panel's button for a stop does; null: it has none.
    void setStop(std::function<void()> stop) { m_stop = std::move(stop); }
    void report(const QString& text, int percent);
    void end();

private:
    base::ProgressSink* m_sink;
    QString m_title;
    std::function<void()> m_stop;
    bool m_isShown = false;
};

/// How much of a run is done, of 100.
[[nodiscard]] constexpr int percentOf(qsizetype done, qsizetype total)
{
    return total > 0 ? int(done * 100 / total) : 100;
}

} // namespace mosaro::organisation
