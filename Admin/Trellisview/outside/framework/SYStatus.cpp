#include "outside/framework/SYStatus.h"

#include <utility>

SYStatus::SYStatus(long code, std::string message) : m_code(code), m_message(std::move(message)) {}
