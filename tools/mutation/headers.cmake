# CMake includes this behind project(). Mutants are compiled one by one, and mostly read the same headers: read them once.
function(precompileHeaders)
  set(standard <algorithm> <array> <atomic> <chrono> <cmath> <functional> <map> <memory> <mutex> <optional> <span> <string>
    <string_view> <tuple> <variant> <vector>)
  target_precompile_headers(palomet-model PRIVATE ${standard} <QtCore/QtCore> <QtNetwork/QtNetwork> <simdjson.h>)
  target_precompile_headers(palomet-audio PRIVATE ${standard} <QtCore/QtCore> <QtNetwork/QtNetwork> <simdjson.h>)
  target_precompile_headers(palomet-shortcuts PRIVATE ${standard} <QtCore/QtCore>)
  target_precompile_headers(palomet-command PRIVATE ${standard} <QtCore/QtCore>)
  target_precompile_headers(palomet-doctor PRIVATE ${standard} <QtCore/QtCore>)
  target_precompile_headers(palomet-app PRIVATE ${standard} <QtWidgets/QtWidgets> <QtNetwork/QtNetwork>)
endfunction()
cmake_language(DEFER CALL precompileHeaders)
