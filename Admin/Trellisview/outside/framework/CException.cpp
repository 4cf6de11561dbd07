#include "outside/framework/CException.h"

#include <utility>

CException::CException(std::string message) : m_message(std::move(message)) {}

int CException::GetErrorMessage(std::string& message) const {
    message = m_message;
    return message.empty() ? 0 : 1;
}

CDBException::CDBException(int code, std::string message)
    : CException(std::move(message)), m_code(code) {}
