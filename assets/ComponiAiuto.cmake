# cmake -DPAGINE=<folder> -DUSCITA=<folder> -P ComponiAiuto.cmake
#
# Copies the pages of the help, with the table of keys in the place of each <!--tasti WINDOW-->. The rows of a window
# that no page shows, and a place without rows, are errors.
cmake_minimum_required(VERSION 3.25)

file(READ ${PAGINE}/tasti.tsv tabella)
string(REPLACE ";" "@@" tabella "${tabella}")  # CMake's own mark between the items of a list
string(REPLACE "\n" ";" righe "${tabella}")
list(POP_FRONT righe)
set(finestre "")
list(FILTER righe EXCLUDE REGEX "^$")
foreach(riga IN LISTS righe)
  if(NOT riga MATCHES "^([^\t]+)\t([^\t]+)\t([^\t]+)\t([^\t]+)$")
    message(FATAL_ERROR "tasti.tsv: ${riga}")
  endif()
  set(finestra ${CMAKE_MATCH_1})
  string(REPLACE "@@" ";" effetto "${CMAKE_MATCH_3}")
  string(REPLACE ", " "</b>, <b>" tasti "${CMAKE_MATCH_2}")
  string(APPEND tabella_${finestra} "<tr><td><b>${tasti}</b></td><td>${effetto}</td></tr>\n")
  list(APPEND finestre ${finestra})
endforeach()
list(REMOVE_DUPLICATES finestre)

file(GLOB pagine ${PAGINE}/*.html)
foreach(pagina IN LISTS pagine)
  file(READ ${pagina} testo)
  string(REGEX MATCHALL "<!--tasti [^ ]+-->" posti "${testo}")
  foreach(posto IN LISTS posti)
    string(REGEX REPLACE "<!--tasti (.*)-->" "\\1" finestra "${posto}")
    list(REMOVE_ITEM finestre ${finestra})
    if(NOT DEFINED tabella_${finestra})
      message(FATAL_ERROR "${pagina}: ${finestra} has no keys")
    endif()
    string(REPLACE "${posto}" "<table border=\"0\" cellspacing=\"1\">
<tr><th>Tasto</th><th>Che cosa fa</th></tr>\n${tabella_${finestra}}</table>" testo "${testo}")
  endforeach()
  get_filename_component(nome ${pagina} NAME)
  file(WRITE ${USCITA}/${nome} "${testo}")
endforeach()
if(finestre)
  message(FATAL_ERROR "No page shows the keys of ${finestre}")
endif()
