#include "outside/store/SYRecordset.h"

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"

SYRecordset::SYRecordset(SYDatabase* database) : m_database(database) {
    if (database == nullptr)
        throw CInvalidArgException("A record set needs a database.");
}

SYRecordset::~SYRecordset() {
    Close();
}

void SYRecordset::BuildQuery(SYSelect& /*select*/) const {
    throw CInvalidArgException("This record set has no query of its own; open it with an SQL "
                               "text.");
}

int SYRecordset::Open(int /*type*/, const char* text, int options) {
    Close();
    m_haveText = text != nullptr;
    m_text = m_haveText ? text : "";
    m_options = options;
    Run();
    return 1;
}

void SYRecordset::Requery() {
    if (!IsOpen())
        throw CDBException(21, "Requery on a record set that is not open.");
    Run();
}

void SYRecordset::Run() {
    SYSelect select;
    if (!m_haveText)
        BuildQuery(select);
    m_eof = 1;
    m_haveAddedKey = 0;
    m_writeMode = WriteMode::none;
    m_pending.clear();
    // A requery usually changes only the filter values: the prepared statement stays and
    // the text is not even written.
    if (m_statement && (m_haveText || select.SameText(m_query))) {
        m_statement->Reset();
    } else {
        m_database->KeepStatement(std::move(m_statement));
        m_statement = m_database->TakeStatement(m_haveText ? m_text : select.Sql());
    }
    m_query = std::move(select);
    const auto& parameters = m_query.Parameters();
    for (std::size_t i = 0; i < parameters.size(); ++i)
        m_statement->Bind(static_cast<int>(i) + 1, parameters[i]);
    try {
        m_eof = m_statement->Step() ? 0 : 1;
    } catch (...) {
        m_statement.reset();
        throw;
    }
}

void SYRecordset::Close() {
    m_database->KeepStatement(std::move(m_statement));
    m_eof = 1;
    m_writeMode = WriteMode::none;
    m_pending.clear();
}

void SYRecordset::MoveNext() {
    if (!IsOpen() || m_eof)
        throw CDBException(21, "MoveNext past the end of a record set.");
    m_haveAddedKey = 0;
    m_eof = m_statement->Step() ? 0 : 1;
}

int SYRecordset::ColumnOf(std::string_view name) const {
    if (!IsOpen() || m_eof)
        throw CDBException(21, "The record set has no current row to read \"" + std::string(name) +
                                   "\" from.");
    const int column = m_statement->ColumnIndex(name);
    if (column < 0)
        throw CDBException(1, "The record set has no field \"" + std::string(name) + "\".");
    return column;
}

void SYRecordset::GetFieldValue(const std::string& name, std::string& text) const {
    text = m_statement->IsNull(ColumnOf(name)) ? std::string() : FieldText(name);
}

bool SYRecordset::FieldIsNull(std::string_view name) const {
    return m_statement->IsNull(ColumnOf(name));
}

std::int64_t SYRecordset::FieldInt(std::string_view name) const {
    return m_statement->Int64(ColumnOf(name));
}

std::string SYRecordset::FieldText(std::string_view name) const {
    return m_statement->Text(ColumnOf(name));
}

std::string_view SYRecordset::FieldTextView(std::string_view name) const {
    return m_statement->TextView(ColumnOf(name));
}

void SYRecordset::CheckWritable() const {
    if (WriteTable() == nullptr)
        throw CDBException(8, "This record set cannot be written.");
    if ((m_options & readOnly) != 0)
        throw CDBException(8, "The record set was opened read-only.");
}

void SYRecordset::AddNew() {
    CheckWritable();
    m_pending.clear();
    m_writeMode = WriteMode::add;
    try {
        AddNewDefaults();
    } catch (...) {
        DropPending();
        throw;
    }
}

void SYRecordset::Edit() {
    CheckWritable();
    m_editKey = FieldInt(WriteKey());
    m_pending.clear();
    m_writeMode = WriteMode::edit;
}

void SYRecordset::SetField(const std::string& column, SYDbValue value) {
    if (m_writeMode == WriteMode::none)
        throw CDBException(21, "Set \"" + column + "\" without AddNew or Edit.");
    for (auto& [name, pending] : m_pending) {
        if (name == column) {
            pending = std::move(value);
            return;
        }
    }
    m_pending.emplace_back(column, std::move(value));
}

void SYRecordset::DropPending() {
    m_pending.clear();
    m_writeMode = WriteMode::none;
}

void SYRecordset::WritePending() {
    const std::string table = WriteTable() != nullptr ? WriteTable() : "";
    std::string sql;
    if (m_writeMode == WriteMode::add) {
        std::string columns;
        std::string values;
        for (const auto& [name, value] : m_pending) {
            columns += (columns.empty() ? "" : ", ") + name;
            values += values.empty() ? "?" : ", ?";
        }
        sql = columns.empty()
                  ? "INSERT INTO " + table + " DEFAULT VALUES"
                  : "INSERT INTO " + table + " (" + columns + ") VALUES (" + values + ")";
    } else if (m_writeMode == WriteMode::edit) {
        if (m_pending.empty()) {
            DropPending();
            return;
        }
        std::string assignments;
        for (const auto& [name, value] : m_pending)
            assignments += (assignments.empty() ? "" : ", ") + name + " = ?";
        sql = "UPDATE " + table + " SET " + assignments + " WHERE " + WriteKey() + " = ?";
    } else {
        throw CDBException(21, "Update without AddNew or Edit.");
    }
    auto statement = m_database->Cached(sql);
    int index = 1;
    for (const auto& [name, value] : m_pending)
        statement->Bind(index++, value);
    if (m_writeMode == WriteMode::edit)
        statement->Bind(index, m_editKey);
    statement->Execute();
    if (m_writeMode == WriteMode::add) {
        m_addedKey = m_database->LastInsertID();
        m_haveAddedKey = 1;
    }
    DropPending();
}
