#include "DataTest.h"

#include <algorithm>
#include <filesystem>

std::vector<std::string> DataTest::Beside() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> Column(platform::Recordset& rows, const char* column)
{
    std::vector<std::string> texts;
    for (; !rows.Eof(); rows.MoveNext()) {
        texts.push_back(rows.Text(column));
    }
    return texts;
}
