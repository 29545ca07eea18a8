// SPDX-License-Identifier: MIT
// The reader of matrices.
#include "target.h"
#include "text_reader.h"

#include "kivconvert/matrix_files.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::check_text_reader<KivMatrix>({bytes, size}, kivconvert::parse_matrix_csv, kivconvert::matrix_as_csv);
    return 0;
}
