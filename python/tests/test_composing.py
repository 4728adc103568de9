"""The functions with the arrays of other libraries, none of which the package knows."""

import copy
import inspect
import pickle
import subprocess
import sys

import numpy as np
import pytest

import vardel

# Computed outside of this program, as in tests/models: by ITU-R P.529 at 450 MHz, 100 m and 1.5 m.
URBAN_10_KM = 143.129250
FUNCTIONS = [getattr(vardel, model + what) for model in vardel.MODELS for what in ("_loss", "_field_strength")]


def urban(values):
    return np.asarray(values, float) == pytest.approx([URBAN_10_KM] * len(values), abs=5e-7)


def test_functions_pickle_and_have_signatures():
    for function in [*FUNCTIONS, vardel.in_range, vardel.reach, vardel.base_height_for, vardel.power_for]:
        assert pickle.loads(pickle.dumps(function)) is function
        assert list(inspect.signature(function).parameters)[0] in ("frequency", "model")
    ufunc = vardel._vardel.itu529_loss
    assert isinstance(ufunc, np.ufunc) and pickle.loads(pickle.dumps(ufunc)) is ufunc


def test_a_reach_is_a_record():
    reach = vardel.reach("davidson", 35, 20, loss=165)
    for same in (pickle.loads(pickle.dumps(reach)), copy.deepcopy(reach), vardel.Reach(*reach)):
        assert same == reach
    assert repr(reach).startswith("Reach(outcome='ends', km=73.435")


def test_numpy_options():
    km = np.full(5, 10.0)
    out = np.zeros(5)
    assert vardel.itu529_loss(450, km, out=out, where=[True, True, True, False, True]) is out
    assert urban(out[[0, 1, 2, 4]]) and out[3] == 0
    assert vardel.itu529_loss(450, km, out=km) is km and urban(km)
    gaps = np.zeros((2, 6))[:, ::2]
    vardel.itu529_loss([[450], [450]], [10, 10, 10], out=gaps)
    assert urban(gaps.ravel())


def test_masked_arrays():
    masked = np.ma.array([10.0, -1.0, 10.0], mask=[False, True, False])
    losses = vardel.itu529_loss(450, masked)
    assert losses.mask.tolist() == [False, True, False] and urban(losses.compressed())
    areas = np.ma.array(["Urban", "?"], mask=[False, True])
    losses = vardel.itu529_loss(450, [10, 10], area=areas)
    assert losses.mask.tolist() == [False, True] and urban(losses.compressed())


def test_pandas():
    pandas = pytest.importorskip("pandas")
    frame = pandas.DataFrame(
        {"mhz": [450, 450, 450], "km": [10.0, 10.0, 10.0], "area": ["Urban"] * 3}, index=[7, 8, 9])
    kinds = [frame["area"], frame["area"].astype("string"), frame["area"].astype("category"),
             pandas.Categorical(["Urban"] * 3, categories=["Sea", "Open", "Urban"])]
    for areas in kinds:
        losses = vardel.itu529_loss(frame["mhz"], frame["km"], area=areas)
        assert losses.index.tolist() == [7, 8, 9] and urban(losses)
    for missing in (pandas.Series(["Urban", None]), pandas.Series(["Urban", pandas.NA], dtype="string"),
                    pandas.Series(["Urban", None], dtype="category")):
        assert np.isnan(vardel.itu529_loss(450, 10, area=missing)).tolist() == [False, True]
    for wrong in (frame["area"] + "x", (frame["area"] + "x").astype("category")):
        with pytest.raises(ValueError, match="area is Urban, Suburban or Open, not 'Urbanx'"):
            vardel.itu529_loss(450, 10, area=wrong)
    with pytest.raises(ValueError, match="align them first"):
        vardel.itu529_loss(frame["mhz"], frame["km"].reset_index(drop=True))
    nullable = vardel.itu529_loss(450, pandas.array([10, None], dtype="Float64"))
    assert nullable.isna().tolist() == [False, True]


def test_xarray():
    xarray = pytest.importorskip("xarray")
    km = xarray.DataArray([[10.0, 10.0]], dims=("y", "x"), coords={"x": [5, 6]}, name="distance")
    for area in ("Urban", xarray.DataArray(["Urban", "urban"], dims="x")):
        losses = vardel.itu529_loss(450, km, area=area)
        assert losses.dims == ("y", "x") and losses.x.values.tolist() == [5, 6] and urban(losses[0])
    masts = xarray.DataArray([100.0, 100.0], dims="mast")
    assert vardel.itu529_loss(450, km, masts).dims == ("y", "x", "mast")


def test_dask_arrays_stay_lazy():
    array = pytest.importorskip("dask.array")
    xarray = pytest.importorskip("xarray")
    km = array.full((4, 6), 10.0, chunks=(2, 3))
    texts = np.full((4, 6), "Urban")
    for area in ("Urban", array.from_array(texts, (2, 3)), array.from_array(texts.astype(object), (2, 3))):
        losses = vardel.itu529_loss(450, km, area=area)
        assert type(losses) is array.Array and losses.chunks == ((2, 2), (3, 3)) and losses.dtype == float
        assert urban(losses.compute().ravel())
    wrong = vardel.itu529_loss(450, km, area=array.from_array(np.full((4, 6), "Sea"), (2, 3)))
    with pytest.raises(ValueError, match="not 'Sea'"):
        wrong.compute()
    labelled = vardel.itu529_loss(450, xarray.DataArray(km, dims=("y", "x")))
    assert labelled.chunks == ((2, 2), (3, 3)) and urban(labelled.values.ravel())
    reached = vardel.reach("itu529", array.full(3, 450.0, chunks=2), 100, loss=URBAN_10_KM)
    assert reached.compute() == pytest.approx([10] * 3, abs=1e-6)


def test_dask_frames_stay_lazy():
    pandas = pytest.importorskip("pandas")
    dataframe = pytest.importorskip("dask.dataframe")
    frame = pandas.DataFrame({"km": [10.0] * 6, "area": ["Urban"] * 6}, index=range(10, 16))
    for area in (frame["area"], frame["area"].astype("category"), frame["area"] + "x"):
        lazy = dataframe.from_pandas(frame.assign(area=area), npartitions=3)
        losses = vardel.itu529_loss(450, lazy["km"], area=lazy["area"])
        assert type(losses) is dataframe.Series and losses.npartitions == 3
        if area[10] == "Urban":
            assert losses.compute().index.tolist() == [*range(10, 16)] and urban(losses.compute())
            continue
        with pytest.raises(ValueError, match="not 'Urbanx'"):
            losses.compute()


def test_no_other_library_is_imported():
    subprocess.run([sys.executable, "-B", "-c", """
import sys, vardel
assert not {"dask", "xarray", "pandas", "distributed", "matplotlib"} & set(sys.modules), sys.modules.keys()
"""], check=True)
