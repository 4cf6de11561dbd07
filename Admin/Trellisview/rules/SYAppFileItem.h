#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/framework/SYListItem.h"

// What an item stands for: a stored rule or an inventoried file.
enum SYItemType : unsigned char {
    ItemTypeRule = 1,
    ItemTypeFile = 2,
};

// What a pending edit list still has to do with a rule item.
enum SYItemStatus : unsigned char {
    ItemStatusStored = 0,
    ItemStatusNew = 1,
    ItemStatusChanged = 2,
    ItemStatusRemoved = 3,
};

// One inventoried file as a list row; also the file information of a rule.
class SYAppFileItem : public SYListItem {
public:
    static constexpr std::uint32_t NoSizeHalf = 0xFFFFFFFF;
    static constexpr std::uint64_t NoSize = 0xFFFFFFFFFFFFFFFFULL;

    explicit SYAppFileItem(SYListItemArray* array = nullptr);
    SYAppFileItem(const SYAppFileItem& other);
    SYAppFileItem& operator=(const SYAppFileItem& other);

    // Columns 0-3 are the chained list sorts, 4-7 the single keys. Rule items sort before
    // file items whatever the column; descending reverses the primary key only.
    int CompareTo(const SYListItem* item, int column, int ascending) const override;
    // Plain file items only: a subclass may order otherwise, and rules sort apart from files.
    SortKey GetSortKey(int column) const override;

    std::uint32_t FileID() const { return m_fileID; }
    void SetFileID(std::uint32_t id) { m_fileID = id; }

    const std::string& FileName() const { return m_fileName; }
    void SetFileName(const std::string& name) { m_fileName = name; }

    std::uint64_t FileSize() const;
    void GetFileSize(std::uint32_t& lo, std::uint32_t& hi) const;
    void SetFileSize(std::uint32_t lo, std::uint32_t hi);
    void SetFileSize(std::uint64_t size);
    // Either half at all ones marks the size absent.
    bool HaveFileSize() const;
    void ClearFileSize();

    CTime ModTime() const { return m_modTime; }
    void SetModTime(const CTime& time) { m_modTime = time; }
    bool HaveModTime() const { return !m_modTime.IsNull(); }
    void ClearModTime() { m_modTime = CTime(); }

    unsigned char ItemType() const { return m_itemType; }
    void SetItemType(unsigned char code) { m_itemType = code; }
    unsigned char ItemStatus() const { return m_itemStatus; }
    void SetItemStatus(unsigned char code) { m_itemStatus = code; }

    // "name<TAB>size<TAB>time", with "Any" for an absent size or time.
    void MakeString(std::string& text) const;

    // Taken as a rule: 1 if it covers the file. An absent size or time means any value.
    int MatchesFile(const SYAppFileItem* file) const;

protected:
    // The rule equality shared by both rule kinds: case-sensitive name, both size halves,
    // the exact time.
    bool SameFileInfo(const SYAppFileItem& other) const;

private:
    int CompareKey(const SYAppFileItem& other, int key) const;
    // Appends the key as words ordered as CompareKey orders it, counting them, and tells
    // whether they hold it whole; false where the key has no words.
    bool KeyWords(int key, std::uint64_t* words, int& count, bool& whole) const;
    int CompareFileSize(const SYAppFileItem& other) const;

    std::uint32_t m_fileID = 0;
    std::string m_fileName;
    std::uint32_t m_fileSizeLo = NoSizeHalf;
    std::uint32_t m_fileSizeHi = NoSizeHalf;
    CTime m_modTime;
    unsigned char m_itemType = ItemTypeFile;
    unsigned char m_itemStatus = ItemStatusStored;
};
