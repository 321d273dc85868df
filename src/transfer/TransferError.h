#pragma once

#include "hashing/StreamingHashService.h"
#include "platform/FileSystem.h"
#include "platform/Result.h"

#include <string>
#include <variant>

namespace lumeo {

/// Errors that the transfer itself finds. Refusals of the system are not among them.
enum class TransferFault {
    destinationAlreadyExists, ///< it appeared while the copy was made
    checksumMismatch,
    copyReplaced,  ///< the copy's name leads to another file or to none
    sourceChanged, ///< it is not the file that was copied any more
    sourceInUse,   ///< somebody has it open for writing
};

/// The copy could not be created, or somebody else uses its temporary name.
struct CouldNotCreatePartial {
    FileError reason;
    friend bool operator==(const CouldNotCreatePartial&, const CouldNotCreatePartial&) = default;
};

/// Why a file's transfer ended early.
using TransferError = std::variant<FileError, Cancelled, TransferFault, CouldNotCreatePartial>;

template<class Value>
using TransferResult = Result<Value, TransferError>;

/// The sentence for the journal, in English.
std::string message(const TransferError& error);

/// The same reason, seen from the transfer.
TransferError asTransferError(const HashError& error);

} // namespace lumeo
