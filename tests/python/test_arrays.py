"""Arrays as sequences."""

from collections.abc import MutableSequence

import pytest
import veka


def comments(names):
    return veka.CommentArray(veka.Comment(property=name) for name in names)


def names(array):
    return "".join(c.property for c in array)


def test_an_array_is_read_as_a_sequence():
    array = comments("abcd")
    assert isinstance(array, MutableSequence)
    assert len(array) == 4 and array and not comments("")
    assert array[0].property == "a" and array[-1].property == "d"
    assert names(array[1:3]) == "bc" and names(array[::-2]) == "db" and array[9:] == []
    assert isinstance(array[:], list)
    assert names(array) == "abcd" and names(reversed(array)) == "dcba"
    assert array[1] is array[1]
    assert array[1] in array and veka.Comment(property="c") in array and veka.Comment(property="z") not in array
    assert 5 not in array and None not in array
    assert array.index(veka.Comment(property="c")) == 2 and array.count(array[0]) == 1
    assert array == comments("abcd") and array != comments("abc") and array != comments("abcx")
    assert array == list(array) and array != []
    assert array != veka.FontArray() and array != 1


@pytest.mark.parametrize("index, error", [(4, IndexError), (-5, IndexError), (10**30, IndexError), (-10**30, IndexError),
                                          ("0", TypeError), (1.0, TypeError), (None, TypeError)])
def test_an_index_outside_is_refused(index, error):
    array = comments("abcd")
    with pytest.raises(error):
        array[index]
    with pytest.raises(error):
        array[index] = veka.Comment()
    with pytest.raises(error):
        del array[index]
    assert names(array) == "abcd"


def changed(change):
    """What a change does to an array, and to a list of the same elements."""
    results = []
    for sequence in (comments("abcdef"), list(comments("abcdef"))):
        try:
            change(sequence)
        except Exception as error:
            results.append(type(error))
        else:
            results.append(names(sequence))
    return results


@pytest.mark.parametrize("change", [
    lambda s: s.append(veka.Comment(property="x")),
    lambda s: s.extend(comments("xy")),
    lambda s: s.extend(s),
    lambda s: s.insert(2, veka.Comment(property="x")),
    lambda s: s.insert(-1, veka.Comment(property="x")),
    lambda s: s.insert(99, veka.Comment(property="x")),
    lambda s: s.insert(-99, veka.Comment(property="x")),
    lambda s: s.pop(),
    lambda s: s.pop(1),
    lambda s: s.pop(6),
    lambda s: s.remove(veka.Comment(property="c")),
    lambda s: s.remove(veka.Comment(property="z")),
    lambda s: s.clear(),
    lambda s: s.reverse(),
    lambda s: s.sort(key=lambda c: c.property, reverse=True),
    lambda s: s.sort(),
    lambda s: s.sort(key=lambda c: 1 / 0),
    lambda s: s.__delitem__(0),
    lambda s: s.__delitem__(-1),
    lambda s: s.__delitem__(slice(1, 4)),
    lambda s: s.__delitem__(slice(None, None, 2)),
    lambda s: s.__delitem__(slice(None, None, -3)),
    lambda s: s.__delitem__(slice(None)),
    lambda s: s.__delitem__(slice(4, 1)),
    lambda s: s.__setitem__(1, veka.Comment(property="x")),
    lambda s: s.__setitem__(slice(1, 3), comments("x")),
    lambda s: s.__setitem__(slice(1, 3), comments("wxyz")),
    lambda s: s.__setitem__(slice(2, 2), comments("x")),
    lambda s: s.__setitem__(slice(4, 1), comments("x")),
    lambda s: s.__setitem__(slice(None, None, 2), comments("xyz")),
    lambda s: s.__setitem__(slice(None, None, 2), comments("xy")),
    lambda s: s.__setitem__(slice(None, None, -1), s[:]),
    lambda s: s.__setitem__(slice(0, 2), s[4:]),
    lambda s: s.__setitem__(slice(None), s[2:]),
    lambda s: s.__setitem__(slice(None), []),
    lambda s: s.__setitem__(slice(0, 1), 5),
    lambda s: s.__setitem__(slice(0, 1, 0), []),
    lambda s: s.__setitem__(0, s[1]),
    lambda s: s.__iadd__(comments("x")),
])
def test_an_array_changes_as_a_list_does(change):
    array, python = changed(change)
    assert array == python


def test_a_free_record_moves_into_an_array_and_any_other_is_copied():
    array = comments("a")
    free = veka.Comment(property="b")
    array.append(free)
    assert array[1] is free
    free.property = "c"
    assert names(array) == "ac"
    other = veka.CommentArray()
    other.append(free)
    assert other[0] is not free and other[0] == free
    taken = array.pop()
    assert taken is free
    other.append(taken)
    assert other[1] is free and names(array) == "a"


def test_a_record_that_is_given_twice_is_there_twice():
    record = veka.Comment(property="a")
    array = veka.CommentArray([record, record])
    assert names(array) == "aa" and array[0] is record and array[1] is not record


def test_an_element_that_loses_its_content_in_a_copy_moves_whole():
    pin = veka.MountPin(pin_name="A", no=4)
    pins = veka.MountPinArray([pin])
    assert pins[0].pin_name == "A" and pins[0].no == 4


@pytest.mark.parametrize("value", [1, None, "a", veka.Font(), veka.CommentArray(), veka.Comment])
def test_an_array_refuses_what_it_cannot_hold(value):
    array = comments("ab")
    for change in (lambda: array.append(value), lambda: array.insert(0, value), lambda: array.extend([value]),
                   lambda: array.__setitem__(0, value), lambda: array.__setitem__(slice(0, 1), [veka.Comment(), value]),
                   lambda: array.__setitem__(slice(None, None, -1), [veka.Comment(), value])):
        with pytest.raises(TypeError):
            change()
        assert names(array) == "ab"


def test_a_refused_change_leaves_the_new_records_free():
    array = comments("ab")
    free = veka.Comment(property="x")
    with pytest.raises(TypeError):
        array.extend([free, 1])
    array.append(free)
    assert array[2] is free


def test_objects_of_every_kind_go_into_a_list_of_objects():
    objects = veka.Object3DArray([veka.BALL(h=1), veka.Object3D(), veka.COMPOSITE()])
    assert [type(o) for o in objects] == [veka.BALL, veka.Object3D, veka.COMPOSITE]
    with pytest.raises(TypeError):
        objects.append(veka.Comment())


def test_elements_that_the_reader_did_not_know_are_none():
    composite = veka.COMPOSITE()
    composite.__setstate__({"Elements": [None, ("BALL", {"H": 2.0}), None]})
    elements = composite.elements
    assert [e if e is None else e.h for e in elements] == [None, 2.0, None]
    elements.reverse()
    elements[::2] = elements[::-2]
    assert [e is None for e in elements] == [True, False, True]
    assert None in elements and elements.index(None) == 0
    assert elements.pop() is None
    del elements[0]
    assert len(elements) == 1
    with pytest.raises(TypeError):
        elements[0] = None
    with pytest.raises(TypeError):
        elements.append(None)
