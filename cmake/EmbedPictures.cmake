# cmake -DIN=<html> -DOUT=<html> -P EmbedPictures.cmake
# Copies a page, putting each picture it takes from docs/ (src="../../docs/x.png")
# into the page as a data URL, so that the page is one file wherever it is installed.
file(READ ${IN} page)
get_filename_component(source_dir ${IN} DIRECTORY)
string(REGEX MATCHALL "src=\"[.][.]/[.][.]/docs/[A-Za-z0-9_-]+[.]png\"" pictures "${page}")
list(REMOVE_DUPLICATES pictures)
foreach(attribute IN LISTS pictures)
  string(REGEX REPLACE "^src=\"(.*)\"$" "\\1" relative "${attribute}")
  if(NOT EXISTS ${source_dir}/${relative})
    message(WARNING "${relative} is missing: take it with scripts/screenshots")
    continue()
  endif()
  execute_process(COMMAND base64 -w0 ${source_dir}/${relative}
                  OUTPUT_VARIABLE encoded COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "${attribute}" "src=\"data:image/png;base64,${encoded}\"" page "${page}")
endforeach()
file(WRITE ${OUT} "${page}")
