# cmake -D FOLDER=dir -D OUTPUT=file.cpp -P PageFiles.cmake: the files of a folder as string literals.

file(GLOB files RELATIVE ${FOLDER} ${FOLDER}/*.html ${FOLDER}/*.css ${FOLDER}/*.js ${FOLDER}/*.svg)
set(types_html text/html)
set(types_css text/css)
set(types_js text/javascript)
set(types_svg image/svg+xml)
set(entries "")
foreach(name IN LISTS files)
  file(READ ${FOLDER}/${name} text)
  string(REGEX MATCH "[a-z]+$" extension ${name})
  # Comments and indentation are for who reads the sources. Only comments with a line of their own are told apart safely.
  string(REGEX REPLACE "\n[ \t]+" "\n" text "${text}")
  if(extension STREQUAL js)
    string(REGEX REPLACE "(^|\n)//[^\n]*" "\\1" text "${text}")
    string(REGEX REPLACE "(^|\n)/\\*\\*[^\n]*\\*/" "\\1" text "${text}")
    string(REGEX REPLACE "\n/\\*\\*\n(\\*[^\n]*\n)+" "\n" text "${text}")
  elseif(extension STREQUAL css)
    string(REGEX REPLACE "(^|\n)/\\*[^\n]*\\*/" "\\1" text "${text}")
  endif()
  string(REGEX REPLACE "\n\n+" "\n" text "${text}")
  if(name STREQUAL board.html)
    set(path "/")
  else()
    set(path "/${name}")
  endif()
  string(APPEND entries "      {\"${path}\", {\"${types_${extension}}; charset=utf-8\", R\"page(${text})page\"}},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"Surfaces/Web/PageFiles.hpp\"

namespace surfaces {

const PublicFiles& pageFiles() {
  static const PublicFiles files{
${entries}  };
  return files;
}

}  // namespace surfaces
")
