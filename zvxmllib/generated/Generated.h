// Everything that generated code includes.
#pragma once

#include "zvxmllib/generated/BoundSchema.h"
#include "zvxmllib/generated/Documents.h"
#include "zvxmllib/generated/Lists.h"
#include "zvxmllib/generated/TypedObject.h"
#include "zvxmllib/generated/Values.h"
#include "zvxmllib/grammar/GrammarRows.h"
