#pragma once

// The result codes with their texts, once for everything that is made from them: the constants of
// `plk::codes`, the enumeration of the value library and the tables of texts.
// X(name, value, text)

#define PLK_GENERAL_RESULT_CODES(X)                                       \
    X(Ok, 0x00000000U, "No error")                                        \
    X(False, 0x00000001U, "False")                                        \
    X(InterfaceNotSupported, 0x80000001U, "Interface not supported")      \
    X(Unexpected, 0x80000040U, "Unexpected")                              \
    X(OutOfMemory, 0x80000041U, "Out of memory")                          \
    X(NotSupported, 0x80000042U, "Not supported")                         \
    X(NotImplemented, 0x80000043U, "Not implemented")                     \
    X(BufferTooSmall, 0x80000044U, "Buffer too small")                    \
    X(AccessDenied, 0x80000045U, "Access denied")                         \
    X(InvalidArgument, 0x80000046U, "Invalid argument")                   \
    X(NotMatched, 0x8000004AU, "Not matched")                             \
    X(UnspecifiedError, 0x8000004BU, "Unspecified error")                 \
    X(NotFound, 0x8000004CU, "Not found")                                 \
    X(Found, 0x8000004DU, "Found")                                        \
    X(Locked, 0x8000004FU, "Locked")                                      \
    X(NotLocked, 0x80000050U, "Not locked")                               \
    X(OperationCancelled, 0x80000051U, "Operation cancelled")             \
    X(MethodNotFound, 0x80000057U, "Method not found")                    \
    X(StackIsEmpty, 0x80000058U, "Stack is empty")                        \
    X(MediaError, 0x80000059U, "Media error")                             \
    X(InvalidSignature, 0x8000005AU, "Invalid signature")                 \
    X(InvalidVersion, 0x8000005BU, "Invalid version")                     \
    X(InvalidSize, 0x8000005CU, "Invalid size")                           \
    X(InvalidType, 0x8000005DU, "Invalid type")                           \
    X(InvalidIndex, 0x8000005EU, "Invalid index")                         \
    X(OutOfSpace, 0x80000062U, "Out of space")                            \
    X(NotReady, 0x80000063U, "Not ready")                                 \
    X(LessThan, 0x80000064U, "Less than")                                 \
    X(MoreThan, 0x80000065U, "More than")                                 \
    X(Prohibited, 0x80000066U, "Prohibited")                              \
    X(AlreadyDone, 0x80000067U, "Already done")                           \
    X(NeedReboot, 0x80000068U, "Need reboot")                             \
    X(BasesCorrupted, 0x80000069U, "Bases corrupted")                     \
    X(InvalidState, 0x8000006AU, "Invalid state")                         \
    X(NotInitialized, 0x8000006BU, "Not initialized")                     \
    X(InsufficientResources, 0x8000006CU, "Insufficient resources")       \
    X(InvalidResult, 0x80000071U, "Invalid result")                       \
    X(UnknownException, 0x80000072U, "Unknown exception")                 \
    X(MetaInformationNotFound, 0x80000076U, "Meta information not found") \
    X(NumericalTypeOverflow, 0x80000077U, "Numerical type overflow")      \
    X(FileIsTooBig, 0x80000078U, "File is too big")                       \
    X(TraceLevelOk, 0x80000079U, "Trace level ok")                        \
    X(TraceLevelProhibited, 0x8000007AU, "Trace level prohibited")        \
    X(ClassNotFound, 0x80000100U, "Class not found")                      \
    X(SettingsAreRequired, 0x80000101U, "Settings are required")          \
    X(UnexpectedSettings, 0x80000102U, "Unexpected settings")             \
    X(WrongSettingsType, 0x80000103U, "Wrong settings type")              \
    X(WrongSettingsRevision, 0x80000104U, "Wrong settings revision")      \
    X(SettingsNotFound, 0x80000105U, "Settings not found")                \
    X(ObjectIsUntrusted, 0x80000106U, "Object is untrusted")              \
    X(PropertyNotFound, 0x80000180U, "Property not found")                \
    X(OperationTimeout, 0x80000221U, "Operation timeout")                 \
    X(InvalidSymbol, 0x80000300U, "Invalid symbol")                       \
    X(NonDecSymbol, 0x80000301U, "Non dec symbol")                        \
    X(NonHexSymbol, 0x80000302U, "Non hex symbol")                        \
    X(NonBase64Symbol, 0x80000303U, "Non base64 symbol")                  \
    X(SyntaxError, 0x80000310U, "Syntax error")                           \
    X(GuidSyntaxError, 0x80000311U, "GUID syntax error")                  \
    X(OidSyntaxError, 0x80000312U, "OID syntax error")                    \
    X(DateTimeSyntaxError, 0x80000313U, "DateTime syntax error")

#define PLK_PLATFORM_RESULT_CODES(X)                                                          \
    X(UnspecifiedPlatformError, 0x80010100U, "Unspecified platform error")                    \
    X(InvalidHandle, 0x80010101U, "Invalid handle")                                           \
    X(FileNotFound, 0x80010102U, "File not found")                                            \
    X(PathNotFound, 0x80010103U, "Path not found")                                            \
    X(SharingViolation, 0x80010104U, "Sharing violation")                                     \
    X(AlreadyExists, 0x80010105U, "Already exists")                                           \
    X(WaitAbandoned, 0x80010106U, "Wait abandoned")                                           \
    X(SymbolNotFound, 0x80010107U, "Symbol not found")                                        \
    X(SxsIsIncorrect, 0x80010108U, "Sxs is incorrect")                                        \
    X(InvalidPathName, 0x80010109U, "Invalid path name")                                      \
    X(CannotOpenAnonymousToken, 0x80010110U, "Cannot open an anonymous level security token") \
    X(PasswordIsInvalid, 0x80010111U, "Password is invalid")                                  \
    X(ModuleNotFound, 0x80010112U, "Module not found")                                        \
    X(SystemImageBadSignature, 0x80010113U, "System image bad signature")                     \
    X(CloudFileRequestAborted, 0x80010114U, "Cloud file request aborted")                     \
    X(MemoryMappingFailed, 0x80010115U, "Memory mapping failed")                              \
    X(NetworkError, 0x80010116U, "Network error")
