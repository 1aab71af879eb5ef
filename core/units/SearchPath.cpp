#include "core/units/SearchPath.h"

namespace OmaLib {

SearchPath::SearchPath() : relative(false), subfolder(false) { }

SearchPath::SearchPath(const SearchPath &other) = default;

SearchPath &SearchPath::operator=(const SearchPath &other) = default;

SearchPath::~SearchPath() = default;

} // namespace OmaLib
