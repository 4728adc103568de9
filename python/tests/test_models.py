import threading
import time

import numpy as np
import pytest

import vardel

# Computed outside of this program, as in tests/models.
LOSSES = [
    ("itu529", (450, 10), {}, 143.129250),
    ("itu529", (900, 20.1, 50, 2, "Open"), {"percent_time": 20, "percent_locations": 30}, 133.093877),
    ("davidson", (1600, 64.375, 100, 3, "SUBURBAN", "Large"),
     {"percent_time": 1, "percent_locations": 99}, 198.150923),
    ("cost231", (1700, 20.1, 100, 3, "Suburban", "Large"),
     {"percent_time": 25, "percent_locations": 75}, 159.615550),
    ("us", (100, 200, 50, 2, "Open", "Large"), {"percent_time": 10, "percent_locations": 90}, 161.412185),
]
# At 900 MHz, 60 km, 250 m, 1.5 m and 1 kW.
FIELD_STRENGTHS = {"itu529": 23.2960, "davidson": 19.7578, "cost231": 23.6701, "us": 20.8122}
FUNCTIONS = [getattr(vardel, model + what) for model in vardel.MODELS for what in ("_loss", "_field_strength")]


@pytest.mark.parametrize("model, path, more, loss", LOSSES)
def test_losses_as_published(model, path, more, loss):
    value = getattr(vardel, model + "_loss")(*path, **more)
    assert type(value) is float and value == pytest.approx(loss, abs=5e-7)


def test_field_strengths_and_ranges():
    for model, value in FIELD_STRENGTHS.items():
        field_strength = getattr(vardel, model + "_field_strength")
        assert field_strength(900, 60, 250) == pytest.approx(value, abs=5e-5)
        assert field_strength(900, 60, 250, power=[100, 1e4]) == pytest.approx([value - 10, value + 10], abs=5e-5)
    assert vardel.in_range("cost231", [1499, 1500, 2000, np.nan], 10).tolist() == [False, True, True, False]
    assert vardel.in_range("itu529", 450, 100) is True


# Curves, rows and single elements come from different code.
@pytest.mark.parametrize("function", FUNCTIONS)
def test_arrays_have_the_bits_of_single_calls(function):
    km = np.concatenate([[10, 20, 40.238, 64.38, 100], np.geomspace(0.1, 300, 1200)])
    one_by_one = [function(900, d, 150, 3, "Open", percent_time=10) for d in km.tolist()]
    for distances in (km, np.stack([km, km]).T[:, 0], km.astype(">f8")):
        assert function(900, distances, 150, 3, "Open", percent_time=10).tolist() == one_by_one
    mixed = function([[900], [450]], km, [150] * len(km), 3, "Open", percent_time=10)
    assert mixed.shape == (2, len(km)) and mixed[0].tolist() == one_by_one
    assert mixed[1, -1] == function(450, 300, 150, 3, "Open", percent_time=10)
    cube = function(900, km[:6].reshape(3, 2, 1), [[[100, 150]]], [[[1], [3]]], percent_locations=90)
    assert cube[2, 1, 0] == function(900, km[5], 100, 3, percent_locations=90)


@pytest.mark.parametrize("function", FUNCTIONS)
def test_nan_in_gives_nan_out(function):
    names = ["frequency", "distance", "base_height", "mobile_height", "percent_time", "percent_locations"]
    for area in ("Urban", "Suburban", "Open"):
        for name in names + ["power"] * function.__name__.endswith("strength"):
            given = {"frequency": 450, "distance": 30, "area": area, name: np.nan}
            assert np.isnan(function(**given)), (area, name)
            assert np.isnan(function(**{**given, name: [np.nan, 40]})).tolist() == [True, False]


def test_texts():
    losses = vardel.itu529_loss(450, 10, area=np.array(["Urban", "open"]), city=[["Large"], ["Small/Medium"]])
    assert losses.shape == (2, 2) and losses[1, 0] == pytest.approx(143.129250, abs=5e-7)
    for wrong in ({"area": "Desert"}, {"area": " Urban"}, {"area": ["Urban", "sea"]}, {"city": "large"},
                  {"base_height": [1, 2, 3], "power": [1, 2]}):
        with pytest.raises(ValueError):
            vardel.us_field_strength(450, 10, **wrong)
    with pytest.raises(TypeError, match="area takes text"):
        vardel.us_loss(450, 10, area=None)
    for wrong in ("450", 1j, None, [object()]):
        with pytest.raises(TypeError, match="frequency takes numbers"):
            vardel.us_loss(wrong, 10)
    assert vardel.us_loss(450, []).shape == (0,)


def test_threads_have_their_own_numbers_and_do_not_wait_for_each_other():
    km = np.linspace(0.1, 300, 3_000_000)
    span = []

    def long():
        span.append(time.perf_counter())
        vardel.itu529_loss(450, km)
        span.append(time.perf_counter())

    thread = threading.Thread(target=long)
    thread.start()
    ticks = []
    while thread.is_alive():
        ticks.append(time.perf_counter())
        time.sleep(0.001)
    assert sum(span[0] < tick < span[1] for tick in ticks) > 2

    cities = ["Large", "Small/Medium"] * 4
    expected = {city: vardel.itu529_loss(900, km[:9999], city=city).tolist() for city in cities}
    faults = []

    def many(city):
        for _ in range(20):
            if vardel.itu529_loss(900, km[:9999], city=city).tolist() != expected[city]:
                faults.append(city)

    threads = [threading.Thread(target=many, args=(city,)) for city in cities]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not faults
