#include "outside/framework/SYListItemArray.h"

#include <algorithm>

SYListItemArray::~SYListItemArray() {
    RemoveAll();
}

SYListItem* SYListItemArray::GetAt(int index) const {
    if (index < 0 || index >= GetSize())
        return nullptr;
    return m_items[static_cast<std::size_t>(index)];
}

int SYListItemArray::Add(SYListItem* item) {
    // Only an item that names this array can stand in it already, so the common case
    // needs no search.
    if (item != nullptr && item->GetArray() == this) {
        if (const int index = Find(item); index >= 0)
            return index;
    }
    m_items.push_back(item);
    if (item != nullptr)
        item->SetArray(this);
    return GetSize() - 1;
}

SYListItem* SYListItemArray::Adopt(SYListItem* item) {
    Add(item);
    return item;
}

void SYListItemArray::SetAt(int index, SYListItem* item) {
    if (index < 0 || index >= GetSize())
        return;
    SYListItem*& slot = m_items[static_cast<std::size_t>(index)];
    if (slot == item)
        return;
    delete slot;
    slot = item;
    if (item != nullptr)
        item->SetArray(this);
}

void SYListItemArray::SetSize(int size) {
    if (size < 0)
        size = 0;
    while (GetSize() > size)
        RemoveAt(GetSize() - 1);
    m_items.resize(static_cast<std::size_t>(size), nullptr);
}

void SYListItemArray::RemoveAt(int index) {
    delete Detach(index);
}

SYListItem* SYListItemArray::Detach(int index) {
    if (index < 0 || index >= GetSize())
        return nullptr;
    SYListItem* item = m_items[static_cast<std::size_t>(index)];
    m_items.erase(m_items.begin() + index);
    if (item != nullptr)
        item->SetArray(nullptr);
    return item;
}

int SYListItemArray::Find(const SYListItem* item) const {
    auto it = std::find(m_items.begin(), m_items.end(), item);
    return it == m_items.end() ? -1 : static_cast<int>(it - m_items.begin());
}

void SYListItemArray::RemoveAll() {
    std::vector<SYListItem*> items;
    items.swap(m_items);
    for (SYListItem* item : items)
        delete item;
}

namespace {

// Bottom-up merge: each step reads one comparison and takes from the left run unless the
// right item sorts strictly before, so any answers (even inconsistent ones) give a
// permutation of the input.
void mergeSort(std::vector<SYListItem*>& items, int column, int ascending) {
    const std::size_t n = items.size();
    std::vector<SYListItem*> buffer(n);
    for (std::size_t width = 1; width < n; width *= 2) {
        for (std::size_t lo = 0; lo < n; lo += 2 * width) {
            const std::size_t mid = std::min(lo + width, n);
            const std::size_t hi = std::min(lo + 2 * width, n);
            std::size_t i = lo;
            std::size_t j = mid;
            std::size_t k = lo;
            while (i < mid && j < hi) {
                if (items[j]->CompareTo(items[i], column, ascending) < 0)
                    buffer[k++] = items[j++];
                else
                    buffer[k++] = items[i++];
            }
            while (i < mid)
                buffer[k++] = items[i++];
            while (j < hi)
                buffer[k++] = items[j++];
        }
        items.swap(buffer);
    }
}

} // namespace

void SYListItemArray::SortArray(int column, int ascending) {
    auto firstEmpty = std::stable_partition(m_items.begin(), m_items.end(),
                                            [](const SYListItem* item) { return item != nullptr; });
    std::vector<SYListItem*> present(m_items.begin(), firstEmpty);
    mergeSort(present, column, ascending);
    std::copy(present.begin(), present.end(), m_items.begin());
}
