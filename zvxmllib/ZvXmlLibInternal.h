// The internal classes beside the public interface, for tests and tools that link the static build. Not
// installed.
#pragma once

#include "zvxmllib/ZvXmlLib.h"

#include "zvxmllib/document/ExpatReader.h"
#include "zvxmllib/fastinfoset/FastInfosetBinaryData.h"
#include "zvxmllib/fastinfoset/FastInfosetReader.h"
#include "zvxmllib/fastinfoset/FastInfosetWriter.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/json/JsonReaderDefaultHandler.h"
#include "zvxmllib/json/JsonReaderHandler.h"
#include "zvxmllib/json/JsonReaderToXmlHandler.h"
#include "zvxmllib/json/JsonTextReader.h"
#include "zvxmllib/json/JsonTextWriter.h"
#include "zvxmllib/streams/BinaryStream.h"
#include "zvxmllib/streams/FileBinaryStream.h"
#include "zvxmllib/streams/StringBuffer.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/xml/XmlTextWriter.h"
