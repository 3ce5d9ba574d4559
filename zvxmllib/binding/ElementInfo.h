// Chief header of the static description of generated classes: all of metadata/ in one include.
#pragma once

#include "zvxmllib/binding/metadata/AttributeInfoFamily.h"
#include "zvxmllib/binding/metadata/ElementInfoAll.h"
#include "zvxmllib/binding/metadata/ElementInfoChoice.h"
#include "zvxmllib/binding/metadata/ElementInfoSeq.h"
#include "zvxmllib/binding/metadata/ParentElementInfo.h"
