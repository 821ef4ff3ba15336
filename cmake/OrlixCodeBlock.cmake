# Programs out of the documentation.

# orlix_code_block(<markdown file> <output file>)
# Writes the first ```cpp block of the markdown file, at each configuration after it has changed.
function(orlix_code_block markdown output)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${markdown}")
    file(READ "${markdown}" text)
    string(FIND "${text}" "\n```cpp\n" start)
    if(start EQUAL -1)
        message(FATAL_ERROR "${markdown} has no block of C++")
    endif()
    math(EXPR start "${start} + 8")
    string(SUBSTRING "${text}" ${start} -1 text)
    string(FIND "${text}" "\n```" length)
    math(EXPR length "${length} + 1")
    string(SUBSTRING "${text}" 0 ${length} code)
    file(CONFIGURE OUTPUT "${output}" CONTENT "@code@" @ONLY)
endfunction()
