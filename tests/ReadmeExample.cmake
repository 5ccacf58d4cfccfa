# cmake -DREADME=README.md -DEXAMPLE=example.cpp -P ReadmeExample.cmake: the README shows the example as it is built.
file(READ "${README}" readme)
file(READ "${EXAMPLE}" example)
string(FIND "${readme}" "```cpp\n${example}```" position)
if(position EQUAL -1)
    message(FATAL_ERROR "${README} does not show ${EXAMPLE} as it is")
endif()
