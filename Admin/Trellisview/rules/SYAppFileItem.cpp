#include "rules/SYAppFileItem.h"

#include <typeinfo>

#include "outside/framework/SYString.h"
#include "outside/framework/SYTimeChecker.h"
#include "outside/services/SYLocaleInfo.h"
#include "outside/services/SYStringTable.h"

namespace {

// Key columns 0-3 repeat as the single keys 4-7.
constexpr int KeyFileName = 4;
constexpr int KeyFileSize = 5;
constexpr int KeyModTime = 6;
constexpr int KeyItemType = 7;

constexpr int TieBreaks[4][3] = {
    {KeyModTime, KeyFileSize, KeyItemType},
    {KeyFileName, KeyModTime, KeyItemType},
    {KeyFileName, KeyFileSize, KeyItemType},
    {KeyFileName, KeyFileSize, KeyModTime},
};

constexpr int StringAny = 13511;

// The word for an absent size or time; the string table gives its translation.
std::string anyText() {
    std::string text;
    if (SYStringTable::Load(StringAny, text) == 0)
        text = "Any";
    return text;
}

// Lists sort thousands of plain file items; the exact type spares them the cast's search.
const SYAppFileItem* asFileItem(const SYListItem* item) {
    if (item != nullptr && typeid(*item) == typeid(SYAppFileItem))
        return static_cast<const SYAppFileItem*>(item);
    return dynamic_cast<const SYAppFileItem*>(item);
}

// What the sort keys of plain file items share, so that only they compare keys.
constexpr char fileKeys = 0;

template <class T> int order(T a, T b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}

} // namespace

SYAppFileItem::SYAppFileItem(SYListItemArray* array) : SYListItem(array) {}

SYAppFileItem::SYAppFileItem(const SYAppFileItem& other) : SYListItem() {
    *this = other;
}

SYAppFileItem& SYAppFileItem::operator=(const SYAppFileItem& other) {
    SYListItem::operator=(other);
    m_fileID = other.m_fileID;
    m_fileName = other.m_fileName;
    m_fileSizeLo = other.m_fileSizeLo;
    m_fileSizeHi = other.m_fileSizeHi;
    m_modTime = other.m_modTime;
    m_itemType = other.m_itemType;
    m_itemStatus = other.m_itemStatus;
    return *this;
}

std::uint64_t SYAppFileItem::FileSize() const {
    return (static_cast<std::uint64_t>(m_fileSizeHi) << 32) | m_fileSizeLo;
}

void SYAppFileItem::GetFileSize(std::uint32_t& lo, std::uint32_t& hi) const {
    lo = m_fileSizeLo;
    hi = m_fileSizeHi;
}

void SYAppFileItem::SetFileSize(std::uint32_t lo, std::uint32_t hi) {
    m_fileSizeLo = lo;
    m_fileSizeHi = hi;
}

void SYAppFileItem::SetFileSize(std::uint64_t size) {
    SetFileSize(static_cast<std::uint32_t>(size), static_cast<std::uint32_t>(size >> 32));
}

bool SYAppFileItem::HaveFileSize() const {
    return m_fileSizeLo != NoSizeHalf && m_fileSizeHi != NoSizeHalf;
}

void SYAppFileItem::ClearFileSize() {
    SetFileSize(NoSizeHalf, NoSizeHalf);
}

void SYAppFileItem::MakeString(std::string& text) const {
    text = m_fileName;
    text += '\t';
    text += HaveFileSize() ? SYLocaleInfo::FormatNumber(FileSize()) : anyText();
    text += '\t';
    text += HaveModTime() ? SYLocaleInfo::FormatDateAndTime(m_modTime, 0, 0) : anyText();
}

int SYAppFileItem::MatchesFile(const SYAppFileItem* file) const {
    if (file == nullptr || SYStrICmp(m_fileName, file->m_fileName) != 0)
        return 0;
    if (HaveFileSize() && FileSize() != file->FileSize())
        return 0;
    if (HaveModTime())
        return SYTimeChecker::EqualIgnoreSeconds(m_modTime, file->m_modTime) ? 1 : 0;
    return 1;
}

bool SYAppFileItem::SameFileInfo(const SYAppFileItem& other) const {
    return m_fileName == other.m_fileName && m_fileSizeLo == other.m_fileSizeLo &&
           m_fileSizeHi == other.m_fileSizeHi && m_modTime == other.m_modTime;
}

int SYAppFileItem::CompareTo(const SYListItem* item, int column, int ascending) const {
    const SYAppFileItem* other = asFileItem(item);
    if (other == nullptr)
        return 0;
    int raw = 0;
    const bool oneIsFile = m_itemType == ItemTypeFile || other->m_itemType == ItemTypeFile;
    if (m_itemType != other->m_itemType && oneIsFile) {
        raw = m_itemType == ItemTypeFile ? 1 : -1;
    } else if (column >= 0 && column <= KeyItemType) {
        raw = CompareKey(*other, column % 4 + KeyFileName);
        // Tie-breaks are virtual calls, so a subclass's columns take part; each answer is
        // already oriented, and the negation below turns it back to ascending.
        for (int i = 0; raw == 0 && column < KeyFileName && i < 3; ++i)
            raw = CompareTo(item, TieBreaks[column][i], ascending);
    }
    return ascending ? raw : -raw;
}

int SYAppFileItem::CompareKey(const SYAppFileItem& other, int key) const {
    switch (key) {
    case KeyFileName:
        return SYStrICmp(m_fileName, other.m_fileName);
    case KeyFileSize:
        return CompareFileSize(other);
    case KeyModTime:
        return order(m_modTime.GetTime(), other.m_modTime.GetTime());
    default:
        return order(m_itemType, other.m_itemType);
    }
}

SYListItem::SortKey SYAppFileItem::GetSortKey(int column) const {
    if (typeid(*this) != typeid(SYAppFileItem) || m_itemType != ItemTypeFile || column < 0 ||
        column > KeyItemType)
        return {};
    SortKey key;
    int words = 0;
    bool whole = true;
    if (!KeyWords(column % 4 + KeyFileName, key.words, words, whole))
        return {};
    key.directed = static_cast<std::uint8_t>(words);
    // A tie-break counts only behind a primary key held whole.
    if (column < KeyFileName && whole)
        KeyWords(TieBreaks[column][0], key.words + words, words, whole);
    key.valid = static_cast<std::uint8_t>(words);
    key.family = &fileKeys;
    return key;
}

bool SYAppFileItem::KeyWords(int key, std::uint64_t* words, int& count, bool& whole) const {
    switch (key) {
    case KeyFileName:
        whole = SYStrIPrefix(m_fileName, words, 2);
        count += 2;
        return true;
    case KeyFileSize:
        // A size whose halves disagree on being absent compares differently from each side.
        if (!HaveFileSize())
            return false;
        *words = FileSize();
        break;
    case KeyModTime:
        // The sign bit flipped, so that unsigned order is signed order.
        *words = static_cast<std::uint32_t>(m_modTime.GetTime()) ^ 0x80000000U;
        break;
    default:
        *words = m_itemType;
        break;
    }
    whole = true;
    ++count;
    return true;
}

// This item's size is judged by HaveFileSize; the partner's counts as absent only when both
// halves carry the marker.
int SYAppFileItem::CompareFileSize(const SYAppFileItem& other) const {
    const bool mine = HaveFileSize();
    const bool theirs = other.FileSize() != NoSize;
    if (!mine || !theirs)
        return order(mine, theirs);
    return order(FileSize(), other.FileSize());
}
