#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "outside/store/SYSWInvObject.h"
#include "outside/store/SYSelect.h"

class SYDatabase;

// A row cursor over the store. Life: construct on a database, set InvDataType and the
// filters, Open, read rows until IsEOF, Close. Requery runs the set again with the filter
// values set since. Every cursor reads forward only.
//
// A plain SYRecordset has no query of its own and must be opened with an SQL text.
// Derived sets build theirs from their filters; a text given to Open runs instead.
class SYRecordset : public SYSWInvObject {
public:
    enum OpenType { dynaset = 0, snapshot = 1, forwardOnly = 2 };
    enum OpenOption { none = 0, readOnly = 4 };

    explicit SYRecordset(SYDatabase* database);
    explicit SYRecordset(SYDatabase& database) : SYRecordset(&database) {}
    SYRecordset(const SYRecordset&) = delete;
    SYRecordset& operator=(const SYRecordset&) = delete;
    ~SYRecordset() override;

    // type -1 or any OpenType; options 0 or readOnly. Nonzero on success; throws
    // CDBException on a failure of the store.
    virtual int Open(int type = -1, const char* text = nullptr, int options = 0);
    void Requery();
    void Close();

    int IsOpen() const { return m_statement != nullptr; }
    int IsEOF() const { return m_eof; }
    void MoveNext();
    // A column of the current row as text; NULL gives the empty text.
    void GetFieldValue(const std::string& name, std::string& text) const;

    // Starts a new row, or an edit of the current row; SYAutoIncRecordset::Update writes it.
    void AddNew();
    void Edit();

    SYDatabase& GetDatabase() const { return *m_database; }

protected:
    // The set's own query, from its present filters.
    virtual void BuildQuery(SYSelect& select) const;
    // Where AddNew and Edit write: table and key column; a set without one is read-only.
    virtual const char* WriteTable() const { return nullptr; }
    virtual const char* WriteKey() const { return nullptr; }
    // Values every new row of this set gets (e.g. its inventory).
    virtual void AddNewDefaults() {}

    bool FieldIsNull(std::string_view name) const;
    std::int64_t FieldInt(std::string_view name) const;
    std::string FieldText(std::string_view name) const;
    // The text in place, valid until the set moves: for a caller that only reads it.
    std::string_view FieldTextView(std::string_view name) const;
    void SetField(const std::string& column, SYDbValue value);

    enum class WriteMode { none, add, edit };
    WriteMode PendingWrite() const { return m_writeMode; }
    // Writes the pending row. A new row's key is kept until the set runs or moves again.
    void WritePending();
    void DropPending();
    int HaveAddedKey() const { return m_haveAddedKey; }
    std::int64_t AddedKey() const { return m_addedKey; }

private:
    int ColumnOf(std::string_view name) const;
    void Run();
    void CheckWritable() const;

    SYDatabase* m_database;
    std::unique_ptr<SYStatement> m_statement;
    std::string m_text;
    // The query the statement runs, with the values last bound.
    SYSelect m_query;
    bool m_haveText = false;
    int m_eof = 1;
    int m_options = none;
    WriteMode m_writeMode = WriteMode::none;
    std::int64_t m_editKey = 0;
    std::int64_t m_addedKey = 0;
    int m_haveAddedKey = 0;
    std::vector<std::pair<std::string, SYDbValue>> m_pending;
};
