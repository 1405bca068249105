"""The module over real parts, where they are."""

import copy
import pickle

import veka


def walk(value, seen):
    """Reads every attribute of a record and of all that is inside."""
    seen[type(value)] = seen.get(type(value), 0) + 1
    if isinstance(value, veka.RecordArray):
        for element in value:
            if element is not None:
                walk(element, seen)
        return
    for name in type(value).__fields__:
        content = getattr(value, name)
        if isinstance(content, (veka.Record, veka.RecordArray)):
            walk(content, seen)
        else:
            assert content is not None


def test_every_part_is_walked_copied_and_pickled(corpus):
    seen = {}
    for file in corpus:
        part = veka.read(file)
        assert part.vek.part_general.mpn
        walk(part, seen)
        assert veka.reads(file.read_bytes()) == part
        restored = pickle.loads(pickle.dumps(part))
        assert restored == part and restored.to_dict() == part.to_dict()
        copied = copy.copy(part)
        assert copied.vek.part_general == part.vek.part_general and copied.footprint_db_arr == part.footprint_db_arr
    assert len(seen) > 80


def test_a_dictionary_agrees_with_what_the_host_program_prints(corpus, host):
    from test_state import printed

    for file in corpus[::6]:
        assert veka.read(file).to_dict() == printed(host, file), file
