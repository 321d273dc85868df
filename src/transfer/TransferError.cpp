#include "transfer/TransferError.h"

namespace lumeo {
namespace {

struct MessageOf {
    std::string operator()(const FileError& error) const { return error.message(); }

    std::string operator()(Cancelled) const { return "Operation cancelled. Source file was left untouched."; }

    std::string operator()(const CouldNotCreatePartial& /*refusal*/) const {
        return "Could not create the temporary transfer file.";
    }

    std::string operator()(TransferFault fault) const {
        switch (fault) {
        case TransferFault::destinationAlreadyExists:
            return "Destination file appeared during transfer; the source was left untouched.";
        case TransferFault::checksumMismatch:
            return "File verification failed: SHA-256 checksum mismatch.";
        case TransferFault::copyReplaced:
            return "The copy lost its name to another program; the source was left untouched.";
        case TransferFault::sourceInUse:
            return "Source file is in use and was not removed.";
        case TransferFault::sourceChanged:
            break;
        }
        return "Source file changed after it was copied and was not removed.";
    }
};

} // namespace

std::string message(const TransferError& error) {
    return std::visit(MessageOf{}, error);
}

TransferError asTransferError(const HashError& error) {
    return std::visit([](const auto& reason) { return TransferError(reason); }, error);
}

} // namespace lumeo
