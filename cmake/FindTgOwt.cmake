# The audio processing of libtgowt-dev as one target, TgOwt::audio-processing. The package's own target asks for
# everything that a video call needs; section garbage collection leaves what is used here, which needs Abseil, and OpenSSL
# only where the linker keeps a helper that nobody calls.
find_package(absl QUIET)
find_package(OpenSSL QUIET COMPONENTS Crypto)
find_path(TgOwt_INCLUDE_DIR api/audio/echo_canceller3_factory.h PATH_SUFFIXES tg_owt)
find_library(TgOwt_LIBRARY NAMES libtg_owt.a)

if(TgOwt_LIBRARY AND TgOwt_INCLUDE_DIR AND absl_FOUND AND OPENSSL_FOUND AND NOT TARGET TgOwt::audio-processing)
  add_library(TgOwt::audio-processing UNKNOWN IMPORTED)
  set_target_properties(TgOwt::audio-processing PROPERTIES
    IMPORTED_LOCATION ${TgOwt_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${TgOwt_INCLUDE_DIR}
    INTERFACE_COMPILE_DEFINITIONS "WEBRTC_POSIX;WEBRTC_LINUX"
    INTERFACE_LINK_LIBRARIES "absl::optional;absl::strings;absl::synchronization;OpenSSL::Crypto"
    INTERFACE_LINK_OPTIONS "-Wl,--gc-sections")
endif()

# It is a static library: a distribution whose Abseil has moved on since it was built has one that cannot be linked.
if(TARGET TgOwt::audio-processing)
  include(CheckCXXSourceCompiles)
  set(CMAKE_REQUIRED_LIBRARIES TgOwt::audio-processing)
  check_cxx_source_compiles("
    #include <api/audio/echo_canceller3_factory.h>
    #include <modules/audio_processing/include/audio_processing.h>
    int main() {
        webrtc::AudioProcessingBuilder builder;
        builder.SetEchoControlFactory(std::make_unique<webrtc::EchoCanceller3Factory>());
        return builder.Create() ? 0 : 1;
    }" TgOwt_CAN_BE_LINKED)
  unset(CMAKE_REQUIRED_LIBRARIES)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(TgOwt
  REQUIRED_VARS TgOwt_LIBRARY TgOwt_INCLUDE_DIR absl_FOUND OPENSSL_FOUND TgOwt_CAN_BE_LINKED)
