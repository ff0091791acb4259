#include "organisation/ColorReader.h"

#include "store/ZNDBManager.h"

namespace mosaro::organisation {

void ColorReader::start(const ColorViewOptions& options)
{
    if (m_isRunning) {
        m_next = options;
    } else {
        read(options);
    }
}

void ColorReader::read(const ColorViewOptions& options)
{
    m_isRunning = true;
    if (!m_fetch) {
        m_fetch = std::make_unique<store::AsynchronousFetch>(*m_library.context());
    }
    m_fetch->read<ColorGroups>(
        [this, wanted = colorsOnShow(options)](store::RowReader& reader) {
            const auto rows = store::colorRows(reader, wanted);
            return rows ? ColorGroups(m_library, rows.value()) : ColorGroups();
        },
        [this](ColorGroups groups) { readingEnded(std::move(groups)); });
}

void ColorReader::readingEnded(ColorGroups groups)
{
    m_isRunning = false;
    if (!m_library.isOpenedDatabase()) {
        return;
    }
    if (const auto next = std::exchange(m_next, std::nullopt)) {
        read(*next);
    } else {
        m_completion(std::move(groups));
    }
}

} // namespace mosaro::organisation
