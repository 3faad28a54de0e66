#include <cstdio>
#include <stdexcept>

#include <shared/common/tvo/ipc/proxy/allocator.h>
#include <shared/common/tvo/ipc/proxy/event_loop_error_handler.h>
#include <shared/common/tvo/ipc/proxy/exception_converters.h>
#include <shared/common/tvo/ipc/proxy/logger.h>

namespace tvoipc_detail::api_v1 {

namespace {

constexpr int AnyException = static_cast<int>(0x9000000DU);

}  // namespace

void* DefaultAllocator::Allocate(std::size_t size)
{
    return new unsigned char[size];
}

void DefaultAllocator::Deallocate(void* memory)
{
    delete[] static_cast<unsigned char*>(memory);
}

void DefaultRetcodeExceptionConverter::CatchException(int& code)
{
    code = AnyException;
}

void DefaultRetcodeExceptionConverter::ThrowException(int) {}

void DefaultStringExceptionConverter::CatchException(std::string& text)
{
    text.clear();
}

void DefaultStringExceptionConverter::ThrowException(const std::string& text)
{
    throw std::runtime_error(text);
}

void DefaultLogger::Print(Verbosity, tvoipc::api_v1::ILogMessage& message)
{
    std::fputs(message.Text(), stderr);
}

}  // namespace tvoipc_detail::api_v1

namespace tvoipc::api_v1 {

int DefaultEventLoopErrorHandler::OnCommunicationError(const EventLoopErrorDetails&)
{
    return 0;
}

int DefaultEventLoopErrorHandler::OnResourcesError(const EventLoopErrorDetails&)
{
    return 0;
}

}  // namespace tvoipc::api_v1
