// Forward declarations of all public classes.
#pragma once

template <class T>
class CSmartPtr;
class CZVCriticalSection;
class CInstanceMonitor;

namespace ZvXmlLib16 {

class CAttribute;
class CAttributeCol;
class Cbase64BinaryCol;
class CBigInteger;
class CBinaryData;
class CBinaryStream;
class CbooleanCol;
class CdateCol;
class CDateTime;
class CdatetimeBaseCol;
class CdatetimeCol;
class CDateTimeSpan;
class CdayCol;
class CDecimal;
class CdecimalCol;
class CdurationCol;
class CElement;
class CElementCol;
class CExpatReader;
class CFastInfosetContext;
class CFastInfosetReader;
class CFIVocabulary;
class ChexBinaryCol;
class Ci1Col;
class Ci2Col;
class Ci4Col;
class Ci8Col;
class CintegerCol;
class CJsonContext;
class CmonthCol;
class CmonthDayCol;
class CNamespaceAliasMap;
class Cr4Col;
class Cr8Col;
class CSerializationContext;
class CStringBuffer;
class CstringCol;
class CTextStream;
class CtimeCol;
class Cui1Col;
class Cui2Col;
class Cui4Col;
class Cui8Col;
class CXmlAttribute;
class CXmlCollection;
class CXmlCollectionBase;
class CXmlDocument;
class CXmlElement;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlTextWriter;
class CXmlTypeCollection;
class CXmlWriter;
class CyearCol;
class CyearMonthCol;
class CZvException;
class IEventSink;
class INillable;
class ZvVariant;

} // namespace ZvXmlLib16

namespace ZvXmlLib16Data {

class CAttributeInfo;
class CElementInfo;
class CParentElementInfo;

} // namespace ZvXmlLib16Data
