#include "outside/framework/SYListItemArray.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

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

// An item's key words under the sorted column and the slot it came from; small, as a merge
// moves every slot once per pass.
struct Slot {
    std::uint64_t words[SYListItem::SortKey::MaxWords];
    int index;
    std::uint8_t valid;
};

// A merge sort that reads nothing but single comparisons, and takes the right item only when
// it sorts strictly before, so any answers (even inconsistent ones) give a permutation of the
// input. A comparison reads the two keys first and asks the items only when the keys leave
// it open. It starts from the runs already in order, so a list sorted once and then turned
// around costs a pass: a strictly falling run is simply reversed, which keeps it stable.
class RunMergeSort {
public:
    RunMergeSort(const std::vector<SYListItem*>& items, int column, int ascending, int directed)
        : m_items(items), m_column(column), m_ascending(ascending), m_directed(directed) {}

    void Sort(std::vector<Slot>& order) const {
        std::vector<std::size_t> bounds = Runs(order);
        std::vector<Slot> buffer(order.size());
        while (bounds.size() > 2) {
            std::vector<std::size_t> merged{0};
            for (std::size_t r = 0; r + 1 < bounds.size(); r += 2) {
                const std::size_t hi = r + 2 < bounds.size() ? bounds[r + 2] : bounds[r + 1];
                Merge(order, buffer, bounds[r], bounds[r + 1], hi);
                merged.push_back(hi);
            }
            order.swap(buffer);
            bounds.swap(merged);
        }
    }

private:
    bool Before(const Slot& a, const Slot& b) const {
        const int words = std::min(a.valid, b.valid);
        for (int i = 0; i < words; ++i) {
            if (a.words[i] == b.words[i])
                continue;
            const bool reversed = i < m_directed && m_ascending == 0;
            return reversed ? b.words[i] < a.words[i] : a.words[i] < b.words[i];
        }
        const SYListItem* item = m_items[static_cast<std::size_t>(a.index)];
        return item->CompareTo(m_items[static_cast<std::size_t>(b.index)], m_column, m_ascending) <
               0;
    }

    // The start of every run and the end of the last one.
    std::vector<std::size_t> Runs(std::vector<Slot>& order) const {
        const std::size_t n = order.size();
        std::vector<std::size_t> bounds{0};
        for (std::size_t lo = 0; lo < n;) {
            std::size_t hi = lo + 1;
            if (hi < n && Before(order[hi], order[lo])) {
                while (hi < n && Before(order[hi], order[hi - 1]))
                    ++hi;
                std::reverse(order.begin() + static_cast<std::ptrdiff_t>(lo),
                             order.begin() + static_cast<std::ptrdiff_t>(hi));
            } else {
                while (hi < n && !Before(order[hi], order[hi - 1]))
                    ++hi;
            }
            bounds.push_back(hi);
            lo = hi;
        }
        return bounds;
    }

    void Merge(const std::vector<Slot>& from, std::vector<Slot>& to, std::size_t lo,
               std::size_t mid, std::size_t hi) const {
        std::size_t i = lo;
        std::size_t j = mid;
        std::size_t k = lo;
        while (i < mid && j < hi)
            to[k++] = Before(from[j], from[i]) ? from[j++] : from[i++];
        while (i < mid)
            to[k++] = from[i++];
        while (j < hi)
            to[k++] = from[j++];
    }

    const std::vector<SYListItem*>& m_items;
    int m_column;
    int m_ascending;
    int m_directed;
};

// The items' keys, if every key given is of one family and reads alike; else none counts.
int readKeys(const std::vector<SYListItem*>& items, int column, std::vector<Slot>& order) {
    const void* family = nullptr;
    int directed = -1;
    bool alike = true;
    // The items lie about the heap in another order than the array's: fetching a few ahead
    // keeps the reads from waiting on each other.
    constexpr std::size_t ahead = 16;
    for (std::size_t at = 0; at < order.size(); ++at) {
        if (at + ahead < order.size()) {
            const auto* next = reinterpret_cast<const char*>(
                items[static_cast<std::size_t>(order[at + ahead].index)]);
            __builtin_prefetch(next);
            __builtin_prefetch(next + 64);
        }
        Slot& slot = order[at];
        const SYListItem::SortKey key =
            items[static_cast<std::size_t>(slot.index)]->GetSortKey(column);
        slot.valid = key.family != nullptr
                         ? std::min<std::uint8_t>(key.valid, SYListItem::SortKey::MaxWords)
                         : 0;
        std::copy(std::begin(key.words), std::end(key.words), std::begin(slot.words));
        if (key.family == nullptr)
            continue;
        alike = alike && (family == nullptr || (family == key.family && directed == key.directed));
        family = key.family;
        directed = key.directed;
    }
    if (!alike) {
        for (Slot& slot : order)
            slot.valid = 0;
    }
    return directed;
}

} // namespace

void SYListItemArray::SortArray(int column, int ascending) {
    std::vector<int> moved;
    SortArray(column, ascending, moved);
}

void SYListItemArray::SortArray(int column, int ascending, std::vector<int>& moved) {
    // A tree branch sorts its few items at every expansion: one item needs no sort.
    if (GetSize() < 2) {
        moved.assign(m_items.size(), 0);
        return;
    }
    std::vector<Slot> order;
    std::vector<int> empty;
    order.reserve(m_items.size());
    for (int index = 0; index < GetSize(); ++index) {
        if (m_items[static_cast<std::size_t>(index)] != nullptr)
            order.push_back({{}, index, 0});
        else
            empty.push_back(index);
    }
    const int directed = readKeys(m_items, column, order);
    RunMergeSort(m_items, column, ascending, directed).Sort(order);
    std::vector<SYListItem*> sorted;
    sorted.reserve(m_items.size());
    moved.assign(m_items.size(), 0);
    for (const Slot& slot : order) {
        moved[static_cast<std::size_t>(slot.index)] = static_cast<int>(sorted.size());
        sorted.push_back(m_items[static_cast<std::size_t>(slot.index)]);
    }
    for (const int index : empty) {
        moved[static_cast<std::size_t>(index)] = static_cast<int>(sorted.size());
        sorted.push_back(nullptr);
    }
    m_items.swap(sorted);
}
