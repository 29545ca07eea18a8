// SPDX-License-Identifier: MIT
#include "kivconvert/collected_rows.h"

#include "kivconvert/failure.h"
#include "kivconvert/folders.h"

#include <algorithm>
#include <iterator>

namespace kivconvert
{

void Collected::expect_no_failure() const
{
    if (failure) {
        std::rethrow_exception(failure);
    }
}

Collected collect(const Inputs& inputs, const char* done, const RowMaker& append)
{
    const std::vector<InputFile> files = files_of(inputs);
    std::vector<Rows> rows_of(files.size());
    Collected collected;
    try {
        for_each_file(files, done,
                      [&](std::size_t i) { report_under(files[i].path, [&] { append(rows_of[i], files[i].path); }); });
    } catch (const FilesFailed&) {
        collected.failure = std::current_exception();
    }
    for (Rows& rows : rows_of) {
        std::move(rows.begin(), rows.end(), std::back_inserter(collected.rows));
    }
    return collected;
}

std::string rows_as_json(const Rows& rows)
{
    std::string text = "[";
    const char* separator = "\n";
    for (const TableRow& row : rows) {
        text += separator + row.dump(-1, ' ', false, TableRow::error_handler_t::replace);
        separator = ",\n";
    }
    return text + "\n]\n";
}

} // namespace kivconvert
