"""Tests of the Python package, over the image of examples/, images of the corpus where it is, and damaged ones."""

import glob
import json
import os
import pickle
import subprocess
import threading
from collections import Counter
from fractions import Fraction

import pytest
import zoredid
from hypothesis import given, settings
from hypothesis import strategies as st

PROJECT, SHARED, COMMAND = (os.environ["ZOREDID_" + name] for name in ("PROJECT", "SHARED", "COMMAND"))
MONITOR = os.path.join(PROJECT, "examples/monitor.bin")
PATHS = [MONITOR, *sorted(glob.glob(SHARED + "/corpus/*.bin") if SHARED else [])]
IMAGE = zoredid.load(MONITOR)


def read(path):
    with open(path, "rb") as file:
        return file.read()


BYTES = [data for data in map(read, PATHS) if len(data) >= 128]


@st.composite
def damaged(draw):
    """An image of which bytes are others, cut or with more after it, but long enough to have facts."""
    data = bytearray(draw(st.sampled_from(BYTES)))
    for at, byte in draw(st.lists(st.tuples(st.integers(0, len(data) - 1), st.integers(0, 255)), max_size=12)):
        data[at] = byte
    return bytes(data[:draw(st.integers(128, len(data)))] + draw(st.binary(max_size=40)))


def flatten(value, name=""):
    if isinstance(value, dict):
        for key, inner in value.items():
            yield from flatten(inner, f"{name}.{key}" if name else key)
    else:
        yield name, value


@pytest.mark.skipif(not COMMAND, reason="the command is not built")
def test_facts_and_modes_are_those_of_the_command():
    """Each fact has the value of its own name: JSON of the command has most names and says numbers its own way."""
    done = subprocess.run([COMMAND, "show", "--jsonl", "-0", "--files-from", "-"], input="\0".join(PATHS), text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    compared, numbers = set(), Counter()  # of several EDIDs of a file
    for line in map(json.loads, done.stdout.splitlines()):
        if "error" in line:
            continue
        image = zoredid.load_all(line["file"])[numbers[line["file"]]]
        numbers[line["file"]] += 1
        said = image.facts.as_dict()
        for name, value in flatten(line["facts"]):
            if isinstance(value, list) or name.startswith("unread."):
                continue
            assert name in zoredid.FACTS
            if isinstance(value, str):
                continue
            compared.add(name)
            assert said[name] == pytest.approx(value, rel=2e-2, abs=6e-4), (line["file"], name)
        assert {(mode.id, mode.offset, mode.width * mode.repetition) for mode in image.modes} == {
            (mode["id"], mode["offset"], mode["width"]) for mode in line["modes"]}
    assert len(compared) >= (60 if len(PATHS) > 1 else 15)


def test_an_image_answers():
    facts = IMAGE.facts
    assert (facts.identity.name, facts.link.kind, facts.link.vrr.max_hz) == ("ASUS VE276", zoredid.Link.HDMI, None)
    assert facts.colour.gamma == 2.2
    assert zoredid.Format.YCBCR422 in facts.colour.formats and facts.size.first_timing.interlaced is False
    assert facts.audio_formats[0].rates == zoredid.AudioRate.RATE_32 | zoredid.AudioRate.RATE_44_1 | \
        zoredid.AudioRate.RATE_48
    assert facts.source("colour.gamma") == zoredid.Source("base.display.gamma", 0x17)
    assert facts.source("link.vrr.max_hz") is None and facts.hdr == zoredid.Hdr(*[False] * 4, None, None, None)
    assert facts.takes(zoredid.Space.SRGB, zoredid.Transfer.PQ) is False
    assert "cd/m2" in zoredid.FACTS["colour.content_luminance.max"].doc
    mode = IMAGE.preferred_mode
    assert (str(mode), mode.rate, mode.kind) == ("1920 x 1080 at 60 Hz", 60, zoredid.ModeKind.DETAILED)
    assert mode.clock == mode.rate * mode.horizontal_total * mode.vertical_total
    field = IMAGE.fields["base.display.gamma"]
    assert (field.number, field.offset, field.kind) == (2.2, 0x17, zoredid.FieldKind.NUMBER)
    assert IMAGE.fields.at(0x17) == field and IMAGE.fields[field.index] == field and IMAGE.fields.at(256) is None
    assert "cta.hdmi-forum.vrr-max" not in IMAGE.fields and len(IMAGE.fields.all("checksum")) == 2
    assert IMAGE.check(2026) == [] and "2010" in [finding.found for finding in IMAGE.check(2009)]
    assert "<th>Monitor</th><td>ASUSTek Computer Inc. ASUS VE276</td>" in IMAGE._repr_html_()
    assert repr(IMAGE) == "<zoredid.Image ACI ASUS VE276, 1920 x 1080 at 60 Hz, 256 bytes>"


def test_what_was_not_read_is_not_known():
    cut = zoredid.load(IMAGE.bytes[:200])
    assert cut.facts.unread == "the image ends within block 1" and IMAGE.facts.unread == ""
    assert dict(cut.summary())["HDR"] == dict(cut.summary())["VRR"] == "not known: the image ends within block 1"


def test_images_are_values():
    assert pickle.loads(pickle.dumps(IMAGE)) == IMAGE == zoredid.load(memoryview(IMAGE.bytes))
    assert pickle.loads(pickle.dumps(IMAGE.facts)) == IMAGE.facts and hash(IMAGE.facts) is not None
    assert zoredid.load_all(IMAGE.bytes * 2) == [IMAGE, IMAGE]


def test_markup_of_an_image_is_escaped():
    with IMAGE.edit() as edit:
        edit.name = "<b>&"
    assert "<b>" not in edit.image._repr_html_() and "&lt;b&gt;&amp;" in edit.image._repr_html_()


def test_edits_and_repairs():
    with IMAGE.edit() as edit:
        assert edit.set("base.display.gamma", 2.403) == zoredid.Change("2.20", "2.40", False, ("checksum",), ())
        edit.name, edit.serial_number, edit.year = "Projector", 1, 2024
        with pytest.raises(zoredid.RefusedError, match="takes 1.00 to 3.54"):
            edit.gamma = 9
        for field, number in (("cta.hdmi-forum.vrr-max", 0), ("checksum", 2), (100000, 0), (-1, 0)):
            with pytest.raises(zoredid.Error):
                edit.set(field, 1, number)
    identity = edit.image.facts.identity
    assert (edit.name, identity.name, identity.serial_number, identity.year) == ("Projector", "Projector", 1, 2024)
    assert (edit.serial_number, edit.year, edit.gamma, edit.week) == (1, 2024, 2.4, 34)
    assert edit.image.check(2026) == [] and IMAGE.facts.identity.name == "ASUS VE276"
    broken = bytearray(edit.bytes)
    broken[127] ^= 1
    assert zoredid.load(broken).repair() == (edit.image, [zoredid.Place("checksum", 127, 1)], [])
    broken[:4] = b"1234"
    repair = zoredid.load(broken).repair()
    assert repair.places == [] and repair.withheld[0][:2] == ("base.header", 0)
    assert "more than two" in repair.withheld[0].reason
    assert zoredid.load(broken).repair(leave_out=["base.header", "checksum"]) == (zoredid.load(broken), [], [])
    with pytest.raises(zoredid.Error):
        zoredid.load(broken).repair(leave_out=["no.rule"])


def test_values_of_a_kind_that_a_field_does_not_take_are_refused():
    edit = IMAGE.edit()
    for field, value in (("base.display.gamma", b"\x02"), ("base.display.gamma", bytearray(2)), ("base.name", True),
                         ("base.name", b"AB"), ("base.name", "AB\0CD"), ("base.name", "\ud800"),
                         ("base.display.gamma", "2.3\0"), ("base.identity.serial-number", 2**80)):
        with pytest.raises(zoredid.RefusedError):
            edit.set(field, value)
    for field in ("base.name\0", "\ud800"):
        with pytest.raises(zoredid.NoFieldError):
            edit.set(field, "AB")
        with pytest.raises(zoredid.NoFieldError):
            _ = IMAGE.fields[field]
    with pytest.raises(TypeError, match="not NoneType"):
        edit.name = None
    with pytest.raises(zoredid.Error, match="out of range"):
        edit.set(2**70, 1)
    with pytest.raises(AttributeError):
        edit.nmae = "AB"
    assert edit.bytes == IMAGE.bytes
    edit.set("base.descriptor.text", Fraction(5, 2))
    assert edit.name == "ASUS VE276" and edit.serial_text == "2.5"
    assert "base.display.signal-level" in edit.set("base.display.signal-interface", "raw:0").others


def test_a_text_that_is_empty_or_missing():
    data = bytearray(IMAGE.bytes)
    data[0x4D:0x5A] = b"\n".ljust(13)
    edit = zoredid.load(data).edit()
    assert edit.serial_text == ""
    edit.serial_text = "A1"
    assert edit.serial_text == "A1" and edit.image.facts.identity.serial_text == "A1"
    data[0x4B] = 0x10  # a dummy descriptor, which makes room
    edit = zoredid.load(data).edit()
    for text in ("", "B" * 14, "\xe9"):
        with pytest.raises(zoredid.RefusedError, match="1 to 13 ASCII"):
            edit.serial_text = text
    assert edit.bytes == data
    edit.serial_text = "B" * 13
    assert edit.serial_text == "B" * 13 and edit.image.facts.identity.serial_text == "B" * 13


def test_parts_are_added_moved_and_removed():
    edit = IMAGE.edit()
    vics = [field.value for field in edit.fields if field.id == "cta.video.vic"]
    added = edit.add_item("cta.video", b"\x61")
    assert added.part.id.startswith("cta.video") and "checksum" in added.followed
    assert any(mode.code == 97 for mode in edit.image.modes)
    assert edit.move(added.part, 0).part.index < added.part.index
    assert edit.remove("cta.video", 0).part is None and not any(mode.code == 97 for mode in edit.image.modes)
    assert vics and not any(field.id == "cta.video.vic" for field in edit.fields)
    hdr = edit.add_data_block("cta.hdr-static", bytes((5, 1, 0x60, 0x60, 0x20)))
    assert hdr.part.id == "cta.hdr-static" and edit.image.facts.hdr.hdr10
    assert edit.add_block(0x70).part.id == "displayid" and len(edit.bytes) == 512  # with a block map, by EDID 1.3
    assert edit.add_standard(b"\xd1\xc0").part.id.startswith("base.standard")
    first = edit.fields.all("cta.audio.descriptor")[0]
    assert edit.add_item("cta.audio", bytearray(b"\x0f\7\7"), place=0).new_block == 0
    before = edit.bytes
    with pytest.raises(zoredid.RefusedError, match="no room|lack") as full:
        edit.add_descriptor(b"\0\0\0\xfe\0Hello\n       ", block=0)
    assert full.value.lacking == 18 and full.value.removable
    for call in (lambda: edit.remove(first), lambda: edit.set(first, 1), lambda: edit.add_block(-1),
                 lambda: edit.add_block(2, b"\x70" + bytes(127)), lambda: edit.add_block(2, place=2**70),
                 lambda: edit.add_descriptor(b"12"), lambda: edit.add_standard(b"123"), lambda: edit.add_block(2, b"2"),
                 lambda: edit.add_item("cta.audio", b"1"), lambda: edit.move("base.name", 77),
                 lambda: edit.add_data_block("base.name"), lambda: edit.add_data_block("no.id"),
                 lambda: edit.add_data_block("cta.hdr-static", b"", -1), lambda: edit.remove("checksum"),
                 lambda: edit.remove(2**40), lambda: edit.add_data_block("cta.hdr-static", b"", 99)):
        with pytest.raises(zoredid.Error):
            call()
    assert edit.bytes == before


def test_threads_share_an_editor():
    edit, seen = IMAGE.edit(), set()

    def work(letter):
        for count in range(300):
            edit.name = letter * (1 + count % 13)
            seen.add(edit.name[:1])
            assert len(edit.bytes) == 256

    threads = [threading.Thread(target=work, args=(letter,)) for letter in "ABC"]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert seen == set("ABC") and edit.image.check(2026) == []


def test_images_are_made_of_wishes():
    image = zoredid.make("2560x1440@144", zoredid.WishedMode(1920, 1080, Fraction(60000, 1001)), name="Bench", pq=True,
                         max_luminance=600, min_luminance=0.05, vrr=(48, 144), audio_channels=6, width=600, height=340)
    assert (str(image.preferred_mode), image.facts.identity.name) == ("2560 x 1440 at 143.973 Hz", "Bench")
    assert image.facts.hdr.hdr10 and image.facts.hdr.max_luminance == pytest.approx(600, rel=0.02)
    assert any("603.7" in note or "2560x1440" in note for note in image.notes)
    assert pickle.loads(pickle.dumps(image)).notes == image.notes and zoredid.load(image.bytes) == image
    assert image.facts.hdr.min_luminance == pytest.approx(0.05, rel=0.1)
    assert (image.facts.link.vrr.min_hz, image.facts.audio_formats[0].channels) == (48, 6)
    assert all(finding.severity == zoredid.Severity.NOTE for finding in image.check())
    assert any(mode.rate == Fraction(60000, 1001) or mode.has_fraction for mode in image.modes if mode.width == 1920)
    assert zoredid.make("1920x1080i@60", like=IMAGE).facts.identity.manufacturer == "ACI"
    for modes, wishes, reason in ((["1920x1080@60"], {"max_luminance": 600}, "luminances belong to HDR"),
                                  (["1920x1080@60"], {"name": "more than thirteen"}, "up to 13 printable"),
                                  (["1920x1080@60"], {"audio_channels": 3}, "audio_channels cannot be 3"),
                                  (["1920x1080@60"], {"width": 520.9, "height": 320}, "width cannot be 520.9"),
                                  (["1920x1080@60"], {"product_code": 2**70}, "product_code cannot be"),
                                  (["1920x1080@60"], {"min_luminance": float("nan")}, "min_luminance cannot be nan"),
                                  (["1920x1080@60"], {"name": "AB\0CD"}, "no NUL"),
                                  ([zoredid.WishedMode(1920, 1080, float("inf"))], {}, "no display"),
                                  (["1920x1080"], {}, "written as"), (["0x0@60"], {}, "no display"), ([], {}, "no mode")):
        with pytest.raises(ValueError, match=reason):
            zoredid.make(*modes, **wishes)


@settings(deadline=None, max_examples=100)
@given(st.lists(st.builds(zoredid.WishedMode, st.integers(1, 9000), st.integers(1, 9000), st.fractions(10, 500),
                          st.booleans(), st.sampled_from(zoredid.TimingSource)), min_size=1, max_size=6), damaged())
def test_what_is_made_announces_the_modes(modes, donor):
    try:
        image = zoredid.make(*modes, like=donor)
    except zoredid.RefusedError as error:
        assert str(error) and not str(error).startswith("internal fault")
    else:
        assert {mode[:2] for mode in modes} <= {(mode.width, mode.height) for mode in image.modes}


def test_what_cannot_be_read_is_said():
    with pytest.raises(FileNotFoundError, match="nowhere"):
        zoredid.load("nowhere/edid.bin")
    with pytest.raises(zoredid.Error, match="too few bytes"):
        zoredid.load(b"")
    short = zoredid.load(IMAGE.bytes[:100])
    assert short.check() and "100 bytes" in repr(short) and "100 bytes" in short._repr_html_()
    with pytest.raises(zoredid.Error, match="too few bytes"):
        _ = short.facts
    with pytest.raises(zoredid.NoFieldError, match="the image has no field cta.hdmi-forum.vrr-max"):
        _ = IMAGE.fields["cta.hdmi-forum.vrr-max"]
    with pytest.raises(LookupError, match="no field has the id nonsense"):
        _ = IMAGE.fields["nonsense"]
    with pytest.raises(IndexError):
        _ = IMAGE.fields[len(IMAGE.fields)]
    with pytest.raises(KeyError, match="nonsense"):
        zoredid.read_many([], ["nonsense"])
    with pytest.raises(zoredid.Error, match="16 MiB"):
        zoredid.load("/dev/zero")
    for sources, names in ((MONITOR, ["link.kind"]), (IMAGE.bytes, ["link.kind"]), ([MONITOR], "link.kind")):
        with pytest.raises(TypeError, match="several"):
            zoredid.read_many(sources, names)


def test_tables_grow_whole_or_not_at_all():
    names = ["identity.name", "link.kind"]
    table, failed = (zoredid.read_many([MONITOR, bad], names) for bad in (MONITOR, b"A"))
    assert table != failed and failed == zoredid.read_many([MONITOR, b"A"], names)
    failed.extend(failed)
    assert failed.rows == len(failed["identity.name"]) == len(failed["link.kind"]) == 4 and set(failed.errors) == {1, 3}
    with pytest.raises(ValueError, match="other columns: link.kind"):
        table.extend(zoredid.read_many([MONITOR], names[:1]))
    with memoryview(table["link.kind"].values), pytest.raises(BufferError):
        table.extend(failed)
    assert table == zoredid.read_many([MONITOR] * 2, names)


def test_the_first_of_several_images_counts_in_bytes_as_in_a_file(tmp_path):
    first = zoredid.make("1920x1080@60", name="First", connector=zoredid.Connector.DVI).bytes[:128]
    announced = bytearray(first)  # more blocks than there are
    announced[126], announced[127] = 1, (first[126] + first[127] - 1) % 256
    both = bytes(announced) + IMAGE.bytes
    (tmp_path / "both.bin").write_bytes(both)
    table = zoredid.read_many([both, str(tmp_path / "both.bin"), bytes(announced)], list(zoredid.FACTS))
    for name, column in table.items():
        assert column[0] == column[1] == column[2], name
    assert table["identity.name"][0] == "First"


@settings(deadline=None, max_examples=150)
@given(damaged())
def test_any_image_can_be_asked_everything(data):
    image = zoredid.Image(data)
    said = image.facts.as_dict()
    first = zoredid.load(data).bytes
    table = zoredid.read_many([data, MONITOR], list(zoredid.FACTS), threads=1)
    assert {name: column[0] for name, column in table.items() if column[0] is not None} == pytest.approx(
        zoredid.Image(first).facts.as_dict())
    for name in said:
        assert isinstance(said[name], (zoredid.FACTS[name].type, int))
        assert image.facts.source(name) is not None
    bits = [0] * (8 * len(data))
    for field in image.fields:
        for piece in field.pieces:
            for bit in range(8 * piece.length):
                bits[8 * piece.offset + bit] += piece.mask >> 7 - bit % 8 & 1
    assert set(bits) == {1}
    assert all(finding.rule and finding.why for finding in image.check())
    assert all(mode.rate is None or mode.rate >= 0 for mode in image.modes)
    assert zoredid.load(image.repair()[0].bytes).repair()[1] == []
    assert image._repr_html_().startswith("<table>")


@settings(deadline=None, max_examples=100)
@given(damaged(), st.data())
def test_a_field_takes_its_own_value_and_nothing_else_changes(data, more):
    image = zoredid.load(data)
    leaves = [field for field in image.fields if field.kind != zoredid.FieldKind.GROUP and field.value]
    field = more.draw(st.sampled_from(leaves))
    with image.edit() as edit:
        try:
            change = edit.set(field, field.value)
        except zoredid.RefusedError as error:
            assert str(error) and edit.bytes == image.bytes
        else:
            assert change.after.lower() == field.value.lower()
            assert edit.fields[field.index].value == field.value


@settings(deadline=None, max_examples=25)
@given(st.lists(st.sampled_from([MONITOR, "nowhere", b"", *BYTES]), max_size=60), st.integers(1, 4))
def test_many_are_read_in_order(sources, threads):
    names = ["identity.name", "link.kind", "size.width_mm", "link.hdmi", "identity.container_id"]
    sources = sources * 100  # several batches
    table = zoredid.read_many(iter(sources), names, threads=threads)
    alone = {source: zoredid.read_many([source], names) for source in set(sources)}
    assert table.rows == len(sources) and all(len(table[name]) == len(sources) for name in names)
    for name in names:
        assert list(table[name]) == [alone[source][name][0] for source in sources]
    assert set(table.errors) == {row for row, source in enumerate(sources) if source in ("nowhere", b"")}
    assert all(isinstance(error, (OSError, zoredid.Error)) for error in table.errors.values())
    assert pickle.loads(pickle.dumps(table))["link.kind"] == table["link.kind"]
