# nlohmann/json has headers alone, so that this machine's serve the compilers for other systems too; they are shown by a link,
# without what else lies beside them.
find_path(VASCLIP_JSON nlohmann/json.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH PATHS /usr/include)
set(VASCLIP_JSON_HEADERS ${CMAKE_BINARY_DIR}/json)
file(MAKE_DIRECTORY ${VASCLIP_JSON_HEADERS})
file(CREATE_LINK ${VASCLIP_JSON}/nlohmann ${VASCLIP_JSON_HEADERS}/nlohmann SYMBOLIC)
