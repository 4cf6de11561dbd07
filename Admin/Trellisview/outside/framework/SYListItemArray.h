#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "outside/framework/SYListItem.h"

// Owning growing array of list items; slots may be empty (null).
class SYListItemArray {
public:
    SYListItemArray() = default;
    SYListItemArray(const SYListItemArray&) = delete;
    SYListItemArray& operator=(const SYListItemArray&) = delete;
    ~SYListItemArray();

    int GetSize() const { return static_cast<int>(m_items.size()); }
    bool IsEmpty() const { return m_items.empty(); }

    // Null for an empty slot or an index out of range.
    SYListItem* GetAt(int index) const;
    SYListItem* operator[](int index) const { return GetAt(index); }

    // Takes ownership; gives the new index. A null item makes an empty slot.
    int Add(SYListItem* item);
    template <class T> T* Add(std::unique_ptr<T> item) {
        return static_cast<T*>(Adopt(item.release()));
    }

    // Replaces the slot's item, deleting the old one.
    void SetAt(int index, SYListItem* item);
    void SetSize(int size);
    // Deletes the item and removes the slot.
    void RemoveAt(int index);
    // Gives up ownership of the item and removes the slot.
    SYListItem* Detach(int index);
    int Find(const SYListItem* item) const;
    // Deletes every item.
    void RemoveAll();

    // Stable merge sort through single comparisons only (the items' sort keys, else
    // CompareTo), so items whose comparisons disagree cannot break it. Empty slots go to
    // the end.
    void SortArray(int column, int ascending);
    // The same, telling where each slot went: moved[old index] is its index after the sort.
    void SortArray(int column, int ascending, std::vector<int>& moved);

private:
    SYListItem* Adopt(SYListItem* item);

    std::vector<SYListItem*> m_items;
};
