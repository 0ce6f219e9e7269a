// Owners of the XML library's objects.
#pragma once

#include <libxml/xmlreader.h>
#include <libxml/xmlwriter.h>

#include <memory>

namespace qvn::data::persist {

struct FreeParser {
  void operator()(xmlParserCtxt* parser) const noexcept { xmlFreeParserCtxt(parser); }
};
using ParserHandle = std::unique_ptr<xmlParserCtxt, FreeParser>;

struct FreeDocument {
  void operator()(xmlDoc* document) const noexcept { xmlFreeDoc(document); }
};
using DocumentHandle = std::unique_ptr<xmlDoc, FreeDocument>;

struct FreeReader {
  void operator()(xmlTextReader* reader) const noexcept { xmlFreeTextReader(reader); }
};
using ReaderHandle = std::unique_ptr<xmlTextReader, FreeReader>;

struct FreeWriter {
  void operator()(xmlTextWriter* writer) const noexcept { xmlFreeTextWriter(writer); }
};
using WriterHandle = std::unique_ptr<xmlTextWriter, FreeWriter>;

}  // namespace qvn::data::persist
