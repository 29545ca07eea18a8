# SPDX-License-Identifier: MIT
# Fails unless README has a C++ block that is EXAMPLE, its licence line left out.
file(READ "${README}" readme)
file(READ "${EXAMPLE}" example)
string(FIND "${example}" "\n" licence_end)
math(EXPR code_begin "${licence_end} + 1")
string(SUBSTRING "${example}" ${code_begin} -1 code)
string(FIND "${readme}" "```cpp\n${code}```\n" position)
if(position EQUAL -1)
    message(FATAL_ERROR "${README} does not show ${EXAMPLE} as it is")
endif()
