#include "outside/widgets/SYPeDataLabeledList.h"

#include <algorithm>

#include "outside/widgets/SYPrintEngineText.h"

namespace {

constexpr int Gap = 2; // blanks between label and value

} // namespace

void SYPeDataLabeledList::AddData(const std::string& label, const std::string& value,
                                  int justification) {
    m_rows.push_back({label, value, justification});
}

std::vector<std::string> SYPeDataLabeledList::Layout(int width) const {
    int labelWidth = 0;
    int valueWidth = 0;
    for (const Row& row : m_rows) {
        labelWidth = std::max(labelWidth, printtext::Width(row.label));
        valueWidth = std::max(valueWidth, printtext::Width(row.value));
    }
    // Labels give way first: the value column keeps at least half the line.
    labelWidth = std::min(labelWidth, std::max(1, width / 2 - Gap));
    const int valueRoom = std::max(1, width - labelWidth - Gap);
    valueWidth = std::min(valueWidth, valueRoom);

    std::vector<std::string> lines;
    const std::string indent(static_cast<std::size_t>(labelWidth + Gap), ' ');
    for (const Row& row : m_rows) {
        const std::string label = printtext::Fit(row.label, labelWidth, 0);
        const std::vector<std::string> pieces = printtext::Wrap(row.value, valueRoom);
        const int justification = pieces.size() == 1 ? row.justification : 0;
        const int field = pieces.size() == 1 ? valueWidth : valueRoom;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const std::string value = printtext::Fit(pieces[i], field, justification);
            lines.push_back(
                printtext::TrimRight((i == 0 ? label + std::string(Gap, ' ') : indent) + value));
        }
    }
    return lines;
}
