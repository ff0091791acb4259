#include "organisation/RunProgress.h"

#include "base/Ports.h"

namespace mosaro::organisation {

void RunProgress::report(const QString& text, int percent)
{
    if (!m_sink) {
        return;
    }
    if (!m_isShown) {
        m_isShown = true;
        m_sink->begin(m_title.isEmpty() ? text : m_title);
        m_sink->offerStop(m_stop);
    }
    m_sink->update(text, percent);
}

void RunProgress::end()
{
    if (m_isShown) {
        m_isShown = false;
        m_sink->end();
    }
}

} // namespace mosaro::organisation
