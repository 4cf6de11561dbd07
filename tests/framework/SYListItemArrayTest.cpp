#include <gtest/gtest.h>

#include <vector>

#include "outside/framework/SYListItemArray.h"

namespace {

struct ValueItem : SYListItem {
    explicit ValueItem(int v, SYListItemArray* array = nullptr) : SYListItem(array), value(v) {}
    int CompareTo(const SYListItem* item, int /*column*/, int ascending) const override {
        const auto* peer = dynamic_cast<const ValueItem*>(item);
        if (peer == nullptr)
            return 1;
        const int other = peer->value;
        const int raw = value < other ? -1 : (value > other ? 1 : 0);
        return ascending ? raw : -raw;
    }
    int value;
};

// Answers "before" in both directions, as two kinds of rule item can.
struct LiarItem : SYListItem {
    using SYListItem::SYListItem;
    int CompareTo(const SYListItem*, int, int) const override { return -1; }
};

std::vector<int> values(const SYListItemArray& array) {
    std::vector<int> result;
    for (int i = 0; i < array.GetSize(); ++i) {
        auto* item = static_cast<ValueItem*>(array.GetAt(i));
        result.push_back(item == nullptr ? -1 : item->value);
    }
    return result;
}

TEST(SYListItemArray, SortsBothWaysStablyAndKeepsEmptySlotsLast) {
    SYListItemArray array;
    for (int v : {5, 3, 9, 1, 7})
        new ValueItem(v, &array);
    array.Add(nullptr);
    new ValueItem(2, &array);
    const SYListItem* firstFive = array.GetAt(0);
    const SYListItem* secondFive = new ValueItem(5, &array);
    array.SortArray(0, 1);
    EXPECT_EQ(values(array), (std::vector<int>{1, 2, 3, 5, 5, 7, 9, -1}));
    EXPECT_LT(array.Find(firstFive), array.Find(secondFive));
    std::vector<SYListItem*> before;
    for (int i = 0; i < array.GetSize(); ++i)
        before.push_back(array.GetAt(i));
    std::vector<int> moved;
    array.SortArray(0, 0, moved);
    EXPECT_EQ(values(array), (std::vector<int>{9, 7, 5, 5, 3, 2, 1, -1}));
    EXPECT_LT(array.Find(firstFive), array.Find(secondFive)) << "equal items keep their order";
    ASSERT_EQ(moved.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(array.GetAt(moved[i]), before[i]) << "slot " << i;
}

TEST(SYListItemArray, InconsistentComparisonsStillGiveEveryItemOnce) {
    SYListItemArray array;
    std::vector<SYListItem*> made;
    for (int i = 0; i < 37; ++i)
        made.push_back(i % 2 ? static_cast<SYListItem*>(new LiarItem(&array))
                             : new ValueItem(i, &array));
    array.SortArray(0, 1);
    ASSERT_EQ(array.GetSize(), 37);
    for (SYListItem* item : made)
        EXPECT_NE(array.Find(item), -1);
}

TEST(SYListItemArray, OwnsAndDetaches) {
    SYListItemArray array;
    auto* kept = new ValueItem(1, &array);
    new ValueItem(2, &array);
    EXPECT_EQ(kept->GetArray(), &array);
    SYListItem* detached = array.Detach(0);
    EXPECT_EQ(detached, kept);
    EXPECT_EQ(detached->GetArray(), nullptr);
    delete detached;
    EXPECT_EQ(array.GetAt(-1), nullptr);
    EXPECT_EQ(array.GetAt(1), nullptr);
    array.SetSize(3);
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array.GetAt(2), nullptr);
}

} // namespace

TEST(SYListItemArray, AnItemStandsInItsArrayOnceHoweverItCameThere) {
    SYListItemArray array;
    auto* made = new ValueItem(1, &array);
    EXPECT_EQ(array.Add(made), 0);
    auto* rebound = new ValueItem(2);
    rebound->SetArray(&array); // names the array without being held by it
    EXPECT_EQ(array.Add(rebound), 1);
    EXPECT_EQ(array.Add(rebound), 1);
    EXPECT_EQ(array.GetSize(), 2);
}
