// Forward declarations of all public classes.
#pragma once

template <class T>
class CSmartPtr;
class CZVCriticalSection;
class CInstanceMonitor;

namespace ZvXmlLib16 {

class CAttribute;
class CAttributeCol;
class CBigInteger;
class CBinaryData;
class CBinaryStream;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CElement;
class CElementCol;
class CExpatReader;
class CFastInfosetContext;
class CFastInfosetReader;
class CFIVocabulary;
class CJsonContext;
class CNamespaceAliasMap;
class CSerializationContext;
class CStringBuffer;
class CTextStream;
class CXmlAttribute;
class CXmlCollection;
class CXmlCollectionBase;
class CXmlDocument;
class CXmlElement;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlTextWriter;
class CXmlWriter;
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
