#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// Fills the "%s" marks of a string-table text with the arguments, in order. A mark with no
// argument left stays empty; "%%" gives one "%".
std::string SYFormatText(const std::string& format, std::initializer_list<std::string_view> args);
