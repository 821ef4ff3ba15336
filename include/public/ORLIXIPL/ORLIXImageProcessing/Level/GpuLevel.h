// The frame of level 3 on devices: whole images, handed to kernels by the tables of their plans, and values.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/GpuScaffold.h"
#include "ORLIX/ORLIXHardware/LauncherInfo.h"
#include "ORLIXIPL/ORLIXBaseImageTools/GpuBufferDataColl.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/ImageBufferTypeIdentifier.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevelRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

#include <initializer_list>

namespace orlix::imaproc {

/// The device that all images lie on. Fails, naming attributes, where one lies on the host, and where they lie on
/// several devices. Each of `attributes` holds an image or is null.
ORLIXIMAGEPROCESSING_API ProcessingResult<bool>
findCommonDevice(std::initializer_list<const BaseImageAttribute*> attributes, int& device);

/// What launchers are told: the sizes of `image` and what device `device` is.
ORLIXIMAGEPROCESSING_API gpu::LauncherInfo makeLauncherInfo(const image::BaseImage& image, int device);

/// The table of an image's plans, freed at the end of its scope.
template <class TTable>
class FreedTable
{
public:
    explicit FreedTable(TTable table) : m_table(table) {}
    FreedTable(const FreedTable&) = delete;
    FreedTable& operator=(const FreedTable&) = delete;
    ~FreedTable() { image::tools::freeBufferDataColl(m_table); }

    TTable get() const { return m_table; }

private:
    TTable m_table;
};

/// `TDerived` says its `g_text`, its `Rule` as a type, and its launchers: a public member template
/// `ProcessingResult<bool> genericKernelLauncher<…>()` over the storage types of the images that `TTypedBy` names.
/// `TAttributes` are its attributes in order of creation.
///
/// A run: the images have to lie on one device, which becomes that of the processor; the launcher is called once.
template <class TDerived, class TLibrary, class TTypedBy, class... TAttributes>
class GpuLevel;

template <class TDerived, class TLibrary, class... TTyped, class... TAttributes>
class GpuLevel<TDerived, TLibrary, TypedBy<TTyped...>, TAttributes...>
    : public processor::GpuScaffold<TDerived, TLibrary, TAttributes...>
{
public:
    processor::RulePtr createRule() const { return TDerived::Rule::make(this->accessOwnAttributes()); }

protected:
    processor::StepResult preProcess() override
    {
        int device = 0;
        const ProcessingResult<bool> result = findCommonDevice({imageAttribute<TAttributes>()...}, device);
        if (!result) {
            return processor::StepResult::failed(result.getMessage());
        }
        this->setDeviceIndex(device);
        return processor::StepResult::success();
    }
    /// A table that can't be made is a failure of the run, as a failed launch is.
    ProcessingResult<bool> mainProcess() override
    {
        try {
            return processor::BaseGpuProcessingAlgorithm::mainProcess();
        } catch (const image::ORLIXImageException& error) {
            return ProcessingResult<bool>::failure(error.getMessage());
        }
    }
    ProcessingResult<bool> getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const override
    {
        types.init(ImageBufferTypeIdentifier(this->template accessAttribute<TTyped>()->getImage().getBufferType())...);
        return true;
    }

    /// For launchers: the table of the plans of an image attribute, whose elements are const for an input. Throws
    /// ORLIXImageException where it can't be made.
    template <class TAttribute, class T>
    auto extractTable() const
    {
        return image::tools::extractBufferDataCollToGpu<T>(accessImage<TAttribute>());
    }
    /// For launchers: sizes are those of the image of `TAttribute`.
    template <class TAttribute>
    gpu::LauncherInfo makeInfo() const
    {
        return makeLauncherInfo(accessImage<TAttribute>(), this->getDeviceIndex());
    }
    /// What came of a launch.
    static ProcessingResult<bool> resultOf(const gpu::CudaResult& result)
    {
        return result.bSuccess ? ProcessingResult<bool>::success() : ProcessingResult<bool>::failure(result.message);
    }

private:
    /// Null for values.
    template <class TAttribute>
    const BaseImageAttribute* imageAttribute() const
    {
        if constexpr (std::is_base_of_v<BaseImageAttribute, TAttribute>) {
            return this->template accessAttribute<TAttribute>().get();
        } else {
            return nullptr;
        }
    }
    template <class TAttribute>
    auto& accessImage() const
    {
        auto& image = this->template accessAttribute<TAttribute>()->getImage();
        if constexpr (TAttribute::g_bOutput) {
            return static_cast<image::CudaImage&>(image); // preProcess has looked
        } else {
            return static_cast<const image::CudaImage&>(image);
        }
    }
};

} // namespace orlix::imaproc
