#pragma once

#include <string>

// Framework failures (store, files, arguments). Thrown by value, caught by reference.
class CException {
public:
    explicit CException(std::string message = "An unknown error occurred.");
    CException(const CException&) = default;
    CException& operator=(const CException&) = default;
    virtual ~CException() = default;

    virtual const char* KindName() const { return "CException"; }
    const std::string& ErrorMessage() const { return m_message; }
    int GetErrorMessage(std::string& message) const;

private:
    std::string m_message;
};

// A failure of the inventory database: carries the engine's result code.
class CDBException : public CException {
public:
    CDBException(int code, std::string message);
    const char* KindName() const override { return "CDBException"; }
    int Code() const { return m_code; }

private:
    int m_code;
};

// A file that cannot be opened or read.
class CFileException : public CException {
public:
    using CException::CException;
    const char* KindName() const override { return "CFileException"; }
};

// An argument the framework cannot work with.
class CInvalidArgException : public CException {
public:
    using CException::CException;
    const char* KindName() const override { return "CInvalidArgException"; }
};
