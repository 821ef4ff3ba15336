"""Processors by name: their attributes, and calls with them."""

import pickle

import numpy as np
import pytest
from conftest import filled

import orlix


def test_all_are_listed_and_tell_their_attributes():
    names = orlix.processors()
    assert len(names) == len(set(names)) > 50
    assert {"CopyImgLvl1", "BasicThresholdImgLvl3", "ExtractImg3dValuesLvl1"} <= set(names)
    for name in names:
        p = orlix.processor(name)
        assert p.name == name and p.tool_tip and name in repr(p)
        for attribute in p.attributes:
            assert attribute.name and attribute.kind and attribute.tool_tip
    mark = orlix.processor("orlix::imaproc::util::BasicThresholdImgLvl1")
    assert [(a.name, a.kind, a.optional, a.output, a.required) for a in mark.attributes] == [
        ("InImg", "image", False, False, True),
        ("InThresholdMin", "number", False, False, True),
        ("InThresholdMax", "number", False, False, True),
        ("OutBinImg", "image", False, True, False),
    ]
    (policy,) = [a for a in orlix.processor("ExtractImg2dValuesLvl1").attributes if a.name == "InOptInterpolationPolicy"]
    assert (policy.kind, policy.optional, policy.default) == ("one of nearest, linear, cubic", True, "linear")


@pytest.mark.parametrize("shape", [(9,), (8, 9), (3, 8, 9), (1, 3, 8, 9), (2, 1, 3, 8, 9)])
def test_arrays_in_arrays_out(shape):
    array = filled(shape, np.uint8)
    marked = orlix.processor("BasicThresholdImgLvl1")(InImg=array, InThresholdMin=10, InThresholdMax=np.int16(99))
    assert np.array_equal(marked, (array >= 10) & (array <= 99))
    out = np.zeros(shape, bool)
    assert orlix.processor("BasicThresholdImgLvl1")(InImg=array, InThresholdMin=0, InThresholdMax=9, OutBinImg=out) is out
    assert np.array_equal(out, array <= 9)
    room = np.zeros((*shape[:-1], 2 * shape[-1]), bool)
    orlix.processor("BasicThresholdImgLvl1")(InImg=array, InThresholdMin=0, InThresholdMax=9, OutBinImg=room[..., ::2])
    assert np.array_equal(room[..., ::2], array <= 9) and not room[..., 1::2].any()
    converted = orlix.processor("ConvertImgLvl1")
    for target in (np.float32, "float32", "Real32", np.dtype("f4")):
        real = converted(InImg=array, InConvertImageBufferType=target)
        assert real.dtype == np.float32 and np.array_equal(real, array)


def test_images_in_images_out():
    image = orlix.Image(filled((3, 8, 9), np.uint8), pixel_size=(3, 2, 1), unit="mm")
    copied = orlix.processor("CopyImgLvl1")(InImg=image)
    assert isinstance(copied, orlix.Image) and copied.unit == "mm" and copied.axes == "ZYX"
    out = orlix.copy(image)
    orlix.erase(out, 3)
    assert orlix.processor("CopyImgLvl1")(InImg=image, OutImg=out) is out
    assert orlix.compare(out, image).identical


def test_records_tables_and_values():
    array = filled((6, 7), np.uint16)
    part = orlix.processor("GetROI2dImgLvl1")(
        InImg=array, InInputImg2dOffset={"X": 2, "Y": 1}, InOutputImg2dSize={"X": 4, "Y": 3}
    )
    assert np.array_equal(part, array[1:4, 2:6])
    points = [(0.5, 1), (2, 3.25)]
    read = orlix.processor("ExtractImg2dValuesLvl1")
    found = read(InImg=array, InPICoords2dColl=points, InOptInterpolationPolicy="cubic")
    assert found.tolist() == orlix.values(array, [p[::-1] for p in points], interpolation="cubic").tolist()
    noise = np.zeros((40, 50), np.int16)
    orlix.processor("RandomImgLvl1")(OutImg=noise, InOptOutputRange={"Min": -2, "Max": 3})
    assert set(np.unique(noise)) == set(range(-2, 4))


def test_comparisons_are_comparisons():
    a = filled((4, 5), np.uint8)
    b = a.copy()
    b[2, 3] ^= 1
    found = orlix.processor("CompareImgLvl1")(InImg1=a, InImg2=b)
    assert found == orlix.compare(a, b) and isinstance(found, orlix.Comparison)
    tolerant = orlix.processor("CompareImgLvl1", InImg2=b, InOptImgComparisonTolerance={"mode": 1, "absoluteTolerance": 1.0})
    assert tolerant(InImg1=a).identical


def test_values_are_kept_and_pickle():
    mark = orlix.processor("BasicThresholdImgLvl1", InThresholdMin=5, InThresholdMax=9)
    again = pickle.loads(pickle.dumps(mark))
    assert (again.name, again.values) == (mark.name, {"InThresholdMin": 5, "InThresholdMax": 9})
    array = filled((5, 6), np.uint8)
    assert np.array_equal(again(InImg=array), mark(InImg=array))
    assert np.array_equal(again(InImg=array, InThresholdMax=255), array >= 5)
    future = orlix.submit(mark, InImg=array)
    assert np.array_equal(future.result(), mark(InImg=array))


def test_several_outputs_are_a_named_tuple_that_pickles():
    made = orlix._processors._outputs("Split", ("OutA", "OutB"), (1, "two"))
    assert (made.OutA, made.OutB) == (1, "two")
    assert pickle.loads(pickle.dumps(made)) == made


def test_progress_is_told_and_ends_calls():
    told = []
    orlix.processor("CopyImgLvl1")(InImg=np.zeros((8, 8), np.uint8), progress=lambda done, known: told.append((done, known)))
    assert told[-1][0] == told[-1][1] > 0


class TestBadInput:
    def test_beginnings_of_names(self):
        with pytest.raises(ValueError, match="no processor copy: near it are .*CopyImgLvl1, CopyImgLvl2"):
            orlix.processor("copy")
        with pytest.raises(ValueError, match="lists all"):
            orlix.processor("")

    def test_names(self):
        with pytest.raises(ValueError, match="near it .*CopyImgLvl1"):
            orlix.processor("CopyImgLv1")
        with pytest.raises(ValueError, match="lists all"):
            orlix.processor("Zzzzzzzzz")
        with pytest.raises(TypeError, match="no attribute Image, but InImg, OutImg"):
            orlix.processor("CopyImgLvl1")(Image=np.zeros((2, 2), np.uint8))
        with pytest.raises(TypeError, match="no attribute Image"):
            orlix.processor("CopyImgLvl1", Image=1)

    def test_what_is_missing(self):
        array = np.zeros((2, 2), np.uint8)
        with pytest.raises(TypeError, match="BasicThresholdImgLvl1 needs InThresholdMax, number: "):
            orlix.processor("BasicThresholdImgLvl1")(InImg=array, InThresholdMin=3)
        with pytest.raises(TypeError, match="RandomImgLvl1 needs OutImg"):
            orlix.processor("RandomImgLvl1")()

    def test_values(self):
        array = np.zeros((2, 2), np.uint8)
        mark = orlix.processor("BasicThresholdImgLvl1", InImg=array)
        with pytest.raises(TypeError, match="InThresholdMin.*number"):
            mark(InThresholdMin="much", InThresholdMax=3)
        with pytest.raises(TypeError, match="of type object"):
            mark(InThresholdMin=object(), InThresholdMax=3)
        with pytest.raises(orlix.OrlixError, match="InThresholdM.. is .*0 to 255"):
            mark(InThresholdMin=3, InThresholdMax=300)
        with pytest.raises(TypeError, match="float64.*astype|astype"):
            orlix.processor("CopyImgLvl1")(InImg=np.zeros((2, 2)))

    def test_what_rules_leave_to_the_caller(self):
        volume = np.zeros((3, 4, 5), np.uint8)
        with pytest.raises(orlix.OrlixError):
            orlix.processor("GetSlice3dImgLvl1")(InImg3d=volume, InAxis="z", InSliceIndex=3)
        wide, out = np.full((4, 5), 7, np.uint16), np.zeros_like(volume)
        with pytest.raises(orlix.OrlixError, match="UInt16"):
            put = orlix.processor("PutSlice3dImgLvl1")
            put(InImg3d=volume + 1, InImg2d=wide, InAxis="z", InSliceIndex=1, OutImg=out)
        assert not out.any()

    def test_outputs_that_overlap(self):
        room = np.zeros(40, np.uint8)
        with pytest.raises(ValueError, match="OutImg overlaps an input"):
            orlix.processor("CopyImgLvl1")(InImg=room[:20].reshape(4, 5), OutImg=room[7:27].reshape(4, 5))
        with pytest.raises(ValueError, match="read only"):
            still = np.zeros((4, 5), np.uint8)
            still.flags.writeable = False
            orlix.processor("CopyImgLvl1")(InImg=np.ones((4, 5), np.uint8), OutImg=still)
