"""A record lives as long as an object of Python stands for it. Run with the address sanitizer, these tests see each access
to a record that is gone."""

import gc
import random
import sys
import threading
import weakref

import pytest
import veka


def comments(names):
    return veka.CommentArray(veka.Comment(property=name) for name in names)


def names(array):
    return "".join(c.property for c in array)


def test_a_record_keeps_the_part_that_it_is_in_alive(examples):
    pin = veka.read(examples / "op-amp.veka").vek.electrical.electrical_pins[3]
    gc.collect()
    assert pin.name == "4"
    pin.name = "new"
    assert pin.name == "new"


def test_a_part_is_freed_with_its_last_record():
    part = veka.Manager()
    gone = weakref.ref(part)
    inside = part.vek.part_general.bom
    del part
    assert gone() is not None
    del inside
    assert gone() is None


def test_there_is_one_object_for_a_record():
    part = veka.Manager()
    assert part.vek is part.vek
    assert part.vek.part_general.comment_arr is part.vek.part_general.comment_arr
    array = comments("ab")
    assert array[0] is array[0] is array[-2]


@pytest.mark.parametrize("remove", [
    lambda a: a.__delitem__(1),
    lambda a: a.__delitem__(slice(None)),
    lambda a: a.__delitem__(slice(None, None, -1)),
    lambda a: a.__setitem__(1, veka.Comment(property="x")),
    lambda a: a.__setitem__(slice(0, 3), []),
    lambda a: a.__setitem__(slice(None), comments("xyz")),
    lambda a: a.pop(1),
    lambda a: a.remove(veka.Comment(property="b")),
    lambda a: a.clear(),
    lambda a: a.__init__([]),
])
def test_an_element_that_is_removed_lives_on(remove):
    array = comments("abc")
    element = array[1]
    remove(array)
    gc.collect()
    assert element.property == "b" and not any(element is other for other in array)
    element.property = "still here"
    array.append(element)
    assert array[-1] is element


@pytest.mark.parametrize("replace", [
    lambda part: setattr(part, "vek", veka.VEK()),
    lambda part: setattr(part.vek, "part_general", veka.PartGeneral()),
    lambda part: setattr(part.vek.part_general, "comment_arr", veka.CommentArray()),
    lambda part: setattr(part.vek.part_general, "comment_arr", []),
    lambda part: setattr(part, "vek", veka.Manager().vek),
])
def test_an_element_of_what_is_replaced_lives_on(replace):
    part = veka.Manager()
    part.vek.part_general.comment_arr = comments("abc")
    array = part.vek.part_general.comment_arr
    element = array[1]
    replace(part)
    gc.collect()
    assert element.property == "b"
    assert len(array) == 0 and array is part.vek.part_general.comment_arr
    del part, array
    gc.collect()
    assert element.property == "b"


def test_what_is_inside_of_a_removed_element_lives_on():
    part = veka.Manager()
    part.footprint_db_arr.append(veka.FootprintDB())
    part.footprint_db_arr[0].f_pins.append(veka.FootprintPin())
    pin = part.footprint_db_arr[0].f_pins[0]
    point = pin.point
    point.x = 4
    part.footprint_db_arr = []
    del part, pin
    gc.collect()
    assert point.x == 4
    point.x = 5
    assert point.x == 5


def test_an_element_keeps_its_object_where_the_order_changes():
    array = comments("cab")
    kept = {c.property: c for c in array}
    array.sort(key=lambda c: c.property)
    assert names(array) == "abc" and all(kept[c.property] is c for c in array)
    array.reverse()
    assert names(array) == "cba" and all(kept[c.property] is c for c in array)
    array[::2] = array[::-2]
    assert names(array) == "abc" and all(kept[c.property] is c for c in array)
    array[1:1] = [veka.Comment(property="x")]
    assert names(array) == "axbc" and array[0] is kept["a"] and array[3] is kept["c"]


def test_a_record_cannot_be_inside_of_itself():
    composite = veka.COMPOSITE()
    with pytest.raises(ValueError):
        composite.elements.append(composite)
    composite.elements.append(veka.COMPOSITE())
    with pytest.raises(ValueError):
        composite.elements[0].elements.append(composite)
    composite.elements.append(composite.elements[0])
    assert len(composite.elements) == 2 and composite.elements[0] == composite.elements[1]
    composite.elements[0].elements = composite.elements
    assert len(composite.elements[0].elements) == 2


def test_objects_are_not_nested_too_deeply():
    outer = veka.COMPOSITE()
    with pytest.raises(ValueError):
        for _ in range(100_000):
            wrapper = veka.COMPOSITE()
            wrapper.elements.append(outer)
            outer = wrapper
    inner = outer
    with pytest.raises(ValueError):
        for _ in range(100_000):
            inner.elements.append(veka.COMPOSITE())
            inner = inner.elements[-1]
    deep = outer
    for _ in range(20):
        deep = deep.elements[0]
    with pytest.raises(ValueError):
        for _ in range(100):
            deep.elements = outer.elements
    with pytest.raises(ValueError):
        deep.elements.extend(outer.elements)
    assert outer == outer and outer.to_dict() and repr(outer)


def test_an_array_may_change_while_it_is_iterated():
    array = comments("abcdef")
    assert "".join(c.property for c in array if array.remove(c) is None) == "ace"
    assert names(array) == "bdf"
    seen = 0
    for element in array:
        seen += 1
        if seen < 50:
            array.append(veka.Comment(property=element.property))
    assert len(array) == 52
    for element in array:
        array.clear()
    assert not array


def test_what_runs_inside_of_a_change_may_change_the_array_too():
    array = comments("abc")

    class Clearing:
        def __index__(self):
            array.clear()
            return 0

    for change in (lambda: array[Clearing()], lambda: array.__delitem__(Clearing()),
                   lambda: array.__setitem__(Clearing(), veka.Comment()), lambda: array.pop(Clearing())):
        array[:] = comments("abc")
        with pytest.raises(IndexError):
            change()
    array[:] = comments("abc")
    array[Clearing():Clearing():1] = comments("x")
    assert names(array) == "x"
    array[:] = comments("abc")

    def emptying():
        yield veka.Comment(property="p")
        array.clear()
        yield veka.Comment(property="q")

    array[1:2] = emptying()
    assert names(array) == "pq"
    array[:] = comments("cba")
    array.sort(key=lambda c: (array.clear(), c.property)[1])
    assert names(array) == "abc"
    array[:] = comments("abc")
    array.sort(key=lambda c: (array.append(veka.Comment(property="z")), c.property)[1])
    assert names(array) == "abc"


def test_setting_a_field_may_run_what_removes_the_record():
    array = comments("ab")

    class Removing:
        def __index__(self):
            array.clear()
            gc.collect()
            return 7

    element = array[0]
    element.index = Removing()
    assert element.index == 7 and element.property == "a"


def test_a_callback_of_a_weak_reference_may_take_the_record_anew():
    array = comments("ab")
    seen = []
    reference = weakref.ref(array[0], lambda _: seen.append(array[0]))
    assert reference() is None and names(array) == "ab"
    element = array[1]
    reference = weakref.ref(element, lambda _: (seen.append(array[1]), array.clear()))
    del element
    assert seen[-1].property == "b" and not array
    assert reference() is None


def test_a_record_in_a_cycle_of_objects_is_freed():
    class Noted(veka.Comment):
        pass

    record = Noted()
    record.me = record
    gone = weakref.ref(record)
    del record
    gc.collect()
    assert gone() is None


def test_nothing_is_lost_and_nothing_freed_twice_in_ten_thousand_changes():
    """Compares an array of arrays with lists of Python, changed alike at random."""
    chance = random.Random(1)
    arrays = [veka.Object3DArray() for _ in range(4)]
    models = [[] for _ in arrays]
    held = []
    number = 0
    for _ in range(10_000):
        i, j = chance.randrange(4), chance.randrange(4)
        array, model = arrays[i], models[i]
        at = chance.randrange(len(model) + 1)
        action = chance.randrange(8)
        if action < 3:
            number += 1
            array.insert(at, veka.BALL(h=number))
            model.insert(at, number)
        elif action == 3 and at < len(model):
            held.append((array[at], model[at]))
            if chance.random() < 0.5:
                del array[at], model[at]
        elif action == 4:
            array[at:at + 2] = arrays[j][:2]
            model[at:at + 2] = models[j][:2]
        elif action == 5 and held:
            record, value = held.pop(chance.randrange(len(held)))
            assert record.h == value
            array.append(record)
            model.append(value)
        elif action == 6:
            array.reverse()
            model.reverse()
        elif action == 7 and len(model) > 30:
            del array[::3], model[::3]
    for array, model in zip(arrays, models):
        assert [o.h for o in array] == model
    for record, value in held:
        assert record.h == value


def test_changes_of_a_large_array_take_linear_time():
    array = veka.CommentArray()
    for _ in range(20_000):
        array.append(veka.Comment())
    kept = array[:]
    array.reverse()
    del array[::2]
    del array[:5_000]
    array.clear()
    assert len(kept) == 20_000 and not array


def test_threads_share_a_part():
    part = veka.Manager()
    array = part.vek.part_general.comment_arr
    errors = []

    def change(number):
        try:
            for i in range(300):
                array.append(veka.Comment(index=number))
                for comment in array:
                    comment.index += 1
                if i % 3 == 0:
                    array.pop()
        except Exception as error:
            errors.append(error)

    interval = sys.getswitchinterval()
    sys.setswitchinterval(1e-5)
    threads = [threading.Thread(target=change, args=[n]) for n in range(3)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    sys.setswitchinterval(interval)
    assert not errors and len(array) == 600
