#pragma once

#include "persistence/read_report.h"

#include <string>
#include <string_view>

// Why reading a project stopped, in Russian as UTF-8, from the words of the exception that stopped it.
std::string describeReadFailure(std::string_view reason);

// Where and why it stopped, "lithology, байт 1234: …"; empty where the report knows nothing of it.
std::string describeReadFailure(const ReadReport& report);
