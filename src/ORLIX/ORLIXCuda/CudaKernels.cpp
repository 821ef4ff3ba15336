#include "CudaKernels.h"

#include <map>
#include <string_view>

namespace orlix::cuda {

namespace {

std::map<std::string_view, const void*>& accessKernels()
{
    static std::map<std::string_view, const void*> g_kernels;
    return g_kernels;
}

} // namespace

void enterKernel(const char* name, const void* stub)
{
    accessKernels().emplace(name, stub);
}

const void* findKernel(const char* name)
{
    const auto kernel = accessKernels().find(name);
    return kernel == accessKernels().end() ? nullptr : kernel->second;
}

} // namespace orlix::cuda
