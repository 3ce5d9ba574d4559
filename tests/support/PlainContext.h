// A context with nothing set.
#pragma once

#include "zvxmllib/context/SerializationContext.h"

inline ZvXmlLib16::CSerializationContext const plainContext;
