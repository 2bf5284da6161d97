# The audio processing of libtgowt-dev as one target, TgOwt::audio-processing. The package's own target asks for
# everything that a video call needs; section garbage collection leaves what is used here, which needs Abseil, and OpenSSL
# only where the linker keeps a helper that nobody calls.
find_package(absl QUIET)
find_package(OpenSSL QUIET COMPONENTS Crypto)
find_path(TgOwt_INCLUDE_DIR api/audio/echo_canceller3_factory.h PATH_SUFFIXES tg_owt)
find_library(TgOwt_LIBRARY NAMES libtg_owt.a)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(TgOwt REQUIRED_VARS TgOwt_LIBRARY TgOwt_INCLUDE_DIR absl_FOUND OPENSSL_FOUND)

if(TgOwt_FOUND AND NOT TARGET TgOwt::audio-processing)
  add_library(TgOwt::audio-processing UNKNOWN IMPORTED)
  set_target_properties(TgOwt::audio-processing PROPERTIES
    IMPORTED_LOCATION ${TgOwt_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${TgOwt_INCLUDE_DIR}
    INTERFACE_COMPILE_DEFINITIONS "WEBRTC_POSIX;WEBRTC_LINUX"
    INTERFACE_LINK_LIBRARIES "absl::optional;absl::strings;absl::synchronization;OpenSSL::Crypto"
    INTERFACE_LINK_OPTIONS "-Wl,--gc-sections")
endif()
