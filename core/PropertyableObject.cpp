#include "core/PropertyableObject.h"

TavoLib::PropertyableObject::~PropertyableObject() = default;
