#pragma once

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

    SYListItemArray* GetArray() const { return m_array; }
    void SetArray(SYListItemArray* array) { m_array = array; }

private:
    SYListItemArray* m_array = nullptr;
};
