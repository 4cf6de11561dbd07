#pragma once

#include <cstdint>

#include "outside/framework/CObject.h"

class SYListItemArray;

// Base of every row record. An item made with an array is appended to it and owned by it.
class SYListItem : public CObject {
public:
    explicit SYListItem(SYListItemArray* array = nullptr);
    SYListItem(const SYListItem& other);
    SYListItem& operator=(const SYListItem& other);
    ~SYListItem() override = default;

    // Negative: this sorts before item; 0: together; positive: after.
    virtual int CompareTo(const SYListItem* item, int column, int ascending) const;

    // The leading keys of CompareTo under a column as plain words, read once per item
    // before a sort so that most comparisons touch no item. Keys of one family compare
    // word by word: the first differing word decides, the directed words in the sort's
    // direction and the rest ascending (as tie-breaks are); a word counts only up to the
    // valid ones of both items, and whatever the words leave open goes to CompareTo. A class
    // gives a key only where its words order exactly as its CompareTo does.
    struct SortKey {
        static constexpr int MaxWords = 3;
        const void* family = nullptr; // null: no key
        std::uint64_t words[MaxWords] = {};
        std::uint8_t directed = 0;
        std::uint8_t valid = 0;
    };
    virtual SortKey GetSortKey(int column) const;

    SYListItemArray* GetArray() const { return m_array; }
    void SetArray(SYListItemArray* array) { m_array = array; }

private:
    SYListItemArray* m_array = nullptr;
};
