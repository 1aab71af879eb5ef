#include "core/StreamableObject.h"

TavoLib::StreamableObject::~StreamableObject() = default;
