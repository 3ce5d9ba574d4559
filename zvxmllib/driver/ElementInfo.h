// Chief header of the static description of generated classes: all entries in one include.
#pragma once

#include "zvxmllib/driver/AttributeInfoFamily.h"
#include "zvxmllib/driver/ElementInfoAll.h"
#include "zvxmllib/driver/ElementInfoChoice.h"
#include "zvxmllib/driver/ElementInfoSeq.h"
#include "zvxmllib/driver/ParentElementInfo.h"
