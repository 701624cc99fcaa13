#pragma once

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

// A DXF file as its pairs, read here without any code of the writer.
struct DxfPair {
    int code = -1;
    std::string value;

    bool operator==(const DxfPair&) const = default;
};

inline std::vector<DxfPair> dxfPairs(const std::string& file)
{
    std::vector<DxfPair> pairs;
    std::istringstream lines(file);
    std::string code;
    std::string value;
    while (std::getline(lines, code) && std::getline(lines, value)) {
        if (!value.empty() && value.back() == '\r')
            value.pop_back();
        pairs.push_back({std::atoi(code.c_str()), value});
    }
    return pairs;
}

// The pairs from each 0 to the next one.
inline std::vector<std::vector<DxfPair>> dxfRecords(const std::string& file)
{
    std::vector<std::vector<DxfPair>> records;
    for (const DxfPair& pair : dxfPairs(file)) {
        if (pair.code == 0)
            records.emplace_back();
        if (!records.empty())
            records.back().push_back(pair);
    }
    return records;
}

inline std::string dxfValue(const std::vector<DxfPair>& record, int code)
{
    for (const DxfPair& pair : record)
        if (pair.code == code)
            return pair.value;
    return {};
}
