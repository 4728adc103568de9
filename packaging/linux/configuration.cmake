# Before a package is made: the measured data are a file of the user's, so that it lies in /etc, with a
# link to it beside the program.
set(tree "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/program")
set(beside_program usr/lib/vardel/measured.csv)
if(EXISTS "${tree}/${beside_program}")
  file(MAKE_DIRECTORY "${tree}/etc/vardel")
  file(RENAME "${tree}/${beside_program}" "${tree}/etc/vardel/measured.csv")
  file(CREATE_LINK /etc/vardel/measured.csv "${tree}/${beside_program}" SYMBOLIC)
endif()
