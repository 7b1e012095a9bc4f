# The example in the README must be the program that the tests build and run.
# Arguments: README and EXAMPLE, the two files.
file(READ ${README} readme)
file(READ ${EXAMPLE} example)
string(FIND "${readme}" "${example}" position)
if(position EQUAL -1)
  message(FATAL_ERROR "the README does not show ${EXAMPLE} as it is")
endif()
