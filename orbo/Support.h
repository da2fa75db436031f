//===- orbo/Support.h - Every public header of the support layer ----------===//
//
// One include for applications that want the whole support layer:
//   #include <orbo/Support.h>
// The headers can also be included one by one ("plst/Item.h", ...); this file
// only gathers them. The framework equivalents in base/ come in through them.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_SUPPORT_H
#define ORBO_SUPPORT_H

#include "krcache/DebugChannel.h"
#include "plst/Config.h"
#include "plst/Convert.h"
#include "plst/Item.h"
#include "plst/JSONReader.h"
#include "plst/JSONWriter.h"
#include "plst/Parser.h"
#include "plst/PrettyPrinter.h"
#include "support/AsyncTask.h"
#include "support/BoundedValue.h"
#include "support/Broadcaster.h"
#include "support/CallInfo.h"
#include "support/CallInfoControl.h"
#include "support/Context.h"
#include "support/Debug.h"
#include "support/DebugPrint.h"
#include "support/Domain.h"
#include "support/Env.h"
#include "support/Message.h"
#include "support/Printf.h"
#include "support/Priority.h"
#include "support/Property.h"
#include "support/PropertyGroupIterator.h"
#include "support/PropertySet.h"
#include "support/PropertyTBase.h"
#include "support/TxdProperty.h"
#include "support/TxnIO.h"
#include "support/UnTxdProperty.h"
#include "support/Units.h"
#include "transform/Transformer.h"

#endif // ORBO_SUPPORT_H
