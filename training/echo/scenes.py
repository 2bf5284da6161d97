"""Scenes: a recording of half a minute, as the canceller gets it, and what of it is to be kept.

A scene is wholly given by its seed. Four channels at 48 kHz: reference, microphone, what is to be kept of the
microphone (people here, noise, music), and the people here alone.
"""

from dataclasses import dataclass

import numpy as np
from scipy.ndimage import map_coordinates
from scipy.signal import butter, lfilter, resample_poly

import loudspeakers
from rooms import RATE, DiffuseRoom, Room, heard, movement
from voices import Voices

SECONDS = 30
LENGTH = SECONDS * RATE


@dataclass(frozen=True)
class Kind:
    """A kind of scenes: in how many of them what happens."""

    speakers: loudspeakers.Loudspeakers = loudspeakers.EVERYDAY
    diffuse: float = 0  # Rooms that are known by their statistics alone.
    early: float = 0    # Somebody talks within two seconds, before the canceller knows anything.
    music: float = 0.18
    turned: float = 0.25     # The program's volume...
    gained: float = 0.12     # ...and the microphone's gain...
    most: float = 10         # ...by so many decibels.
    automatic: float = 0.1   # A gain that follows, where none is turned.


KINDS = {
    "everyday": Kind(),
    "demanding": Kind(loudspeakers.STRAINED, diffuse=0.25, early=0.45, music=0.22, turned=0.28, gained=0.16, most=12,
                      automatic=0.16),
}


def level(signal: np.ndarray) -> float:
    """Root mean square of the 20 ms that are not pauses."""
    frames = signal[:len(signal) // 320 * 320].reshape(-1, 320)
    power = (frames.astype(np.float64) ** 2).mean(1)
    loud = power[power > 0.01 * power.max()] if power.max() > 0 else power
    return float(np.sqrt(loud.mean())) + 1e-9


def at_level(signal: np.ndarray, decibels: float) -> np.ndarray:
    return signal * (10 ** (decibels / 20) / level(signal))


def talk(rng: np.random.Generator, utterances: list, pause: tuple, first: float, fill: float = 1.0) -> np.ndarray:
    """Utterances one after the other with pauses between them, from `first` seconds on."""
    signal = np.zeros(LENGTH, np.float32)
    at = int(first * RATE)
    while at < LENGTH:
        said = utterances[int(rng.integers(len(utterances)))].astype(np.float32) / 32768
        peak = np.abs(said).max()
        if peak > 0:
            said = at_level(said, -22 + rng.normal(0, 1.5))
        if rng.random() < fill:
            piece = said[:LENGTH - at]
            signal[at:at + len(piece)] += piece
        at += len(said) + int(rng.uniform(*pause) * RATE)
    return signal


def gain_curve(rng: np.random.Generator, steps: int, most: float) -> np.ndarray:
    """A volume that is turned so many times, at once or over a second."""
    curve, points = np.zeros(LENGTH), np.sort(rng.uniform(3, SECONDS - 2, steps))
    value = 0.0
    for point in points:
        target = float(np.clip(value + rng.choice([-1, 1]) * rng.uniform(3, most), -14, 10))
        ramp = np.clip((np.arange(LENGTH) / RATE - point) / rng.choice([0.01, 0.3, 1.0]), 0, 1)
        curve += ramp * (target - value)
        value = target
    return 10 ** (curve / 20)


def automatic_gain(rng: np.random.Generator, signal: np.ndarray) -> np.ndarray:
    target = rng.uniform(0.05, 0.15)
    loud = loudspeakers.envelope(signal, 0.03, rng.uniform(0.8, 3))
    return np.clip(target / np.maximum(loud, 1e-4), 0.3, 3)


def noise(rng: np.random.Generator, decibels: float) -> np.ndarray:
    white = rng.standard_normal(LENGTH)
    slope = rng.uniform(0.0, 0.97)
    coloured = lfilter([1 - slope], [1, -slope], white)
    if rng.random() < 0.3:
        hum = rng.choice([50, 60]) * rng.integers(1, 4)
        coloured += rng.uniform(0, 2) * coloured.std() * np.sin(2 * np.pi * hum * np.arange(LENGTH) / RATE)
    return at_level(coloured, decibels)


def pick(rng: np.random.Generator, voices: dict) -> list:
    """One voice's utterances: of somebody recorded who speaks in sentences, of somebody recorded who says single words,
    or of a synthesiser, however many voices there are of each kind."""
    synthetic = [name for name in voices if name.startswith(("espeak", "flite"))]
    words = [name for name in voices if name.startswith("words")]
    sentences = [name for name in voices if name not in synthetic and name not in words]
    names = [sentences, words, synthetic][int(rng.choice(3, p=[0.45, 0.2, 0.35]))]
    return voices[names[int(rng.integers(len(names)))]]


def clocked(signal: np.ndarray, ppm: float) -> np.ndarray:
    """The signal by a clock that runs so much too slow; at 48 kHz."""
    if ppm == 0:
        return signal
    at = np.arange(len(signal)) * (1 + ppm * 1e-6)
    return map_coordinates(signal, [at], order=3, mode="constant").astype(np.float32)


def people(rng: np.random.Generator, room: Room, voices: dict, decibels: float, early: float) -> np.ndarray:
    """Who talks here: mostly one, who may walk about, now and then a second one who is softer."""
    sentences = pick(rng, voices)
    words = [one for one in sentences if len(one) < 1.2 * RATE] or sentences
    told = words if rng.random() < 0.25 else sentences
    first = (0.1, 2) if early > 0 and rng.random() < early else (0.5, 9)
    said = talk(rng, told, (0.3, 3.5), rng.uniform(*first))
    spot = room.near(room.microphone, rng.uniform(0.25, 2.5))
    responses = [room.response(spot)]
    shares = None
    if rng.random() < 0.3:
        responses.append(room.response(room.near(spot, rng.uniform(0.2, 1.2))))
        shares = movement(rng, LENGTH)
    total = at_level(heard(said, responses, shares), decibels)
    if rng.random() < 0.2:
        second = talk(rng, pick(rng, voices), (0.5, 5), rng.uniform(0, 12))
        total = total + at_level(heard(second, [room.response(room.place())]), decibels + rng.uniform(-9, 2))
    return total


def disturbances(rng: np.random.Generator, room: Room, voices: Voices, musical: float) -> np.ndarray:
    total = noise(rng, rng.uniform(-82, -62) if rng.random() < 0.6 else rng.uniform(-62, -42))
    if rng.random() < musical:
        name = list(voices.music)[int(rng.integers(len(voices.music)))]
        music = talk(rng, voices.music[name], (0, 0.5), 0)
        total = total + at_level(heard(music, [room.response(room.place())]), rng.uniform(-50, -28))
    if rng.random() < 0.25:
        sounds = talk(rng, voices.sounds["sounds"], (1, 8), rng.uniform(0, 10))
        total = total + at_level(heard(sounds, [room.response(room.place())]), rng.uniform(-55, -30))
    return total


def echo(rng: np.random.Generator, room: Room, reference: np.ndarray, decibels: float, kind: Kind) -> np.ndarray:
    """What the microphone hears of the program; at 16 kHz, without the time that it takes."""
    spot = room.near(room.microphone, rng.uniform(0.1, 1.6) if rng.random() < 0.8 else rng.uniform(1, 3))
    turned = reference
    if rng.random() < kind.turned:
        turned = reference * gain_curve(rng, int(rng.integers(1, 4)), kind.most)
    played = loudspeakers.played(turned, rng, kind.speakers)
    responses, shares = [room.response(spot)], None
    if rng.random() < 0.3:
        responses.append(room.response(room.near(spot, rng.uniform(0.02, 0.6))))
        shares = movement(rng, LENGTH)
    return at_level(heard(played, responses, shares), decibels)


def make(seed: int, voices: Voices, held: bool = False, kind: Kind = KINDS["everyday"]) -> tuple[np.ndarray, dict]:
    """The four channels, interleaved; and what is known of the scene."""
    rng = np.random.default_rng([seed, int(held)])
    pool = voices.held if held else voices.training
    room = DiffuseRoom(rng) if kind.diffuse > 0 and rng.random() < kind.diffuse else Room(rng)
    echo_level = rng.uniform(-40, -18)
    ratio = rng.uniform(-12, 12)
    reference = talk(rng, pick(rng, pool), (0.15, 0.9), rng.uniform(0, 1.5), 1.0 if rng.random() < 0.7 else 0.5)
    is_silent = rng.random() < 0.03
    # The program plays louder or softer; the echo's level does not depend on it.
    reference = at_level(reference, rng.uniform(-30, -14))
    back = np.zeros(LENGTH) if is_silent else echo(rng, room, at_level(reference, -20), echo_level, kind)
    if is_silent:
        reference = np.zeros(LENGTH)
    here = people(rng, room, pool, echo_level + ratio, kind.early) if rng.random() < 0.93 else np.zeros(LENGTH)
    around = disturbances(rng, room, voices, kind.music)
    gain = np.ones(LENGTH)
    if rng.random() < kind.gained:
        gain = gain_curve(rng, int(rng.integers(1, 3)), kind.most)
    elif rng.random() < kind.automatic:
        gain = automatic_gain(rng, back + here + around)

    up = lambda signal: resample_poly(signal, 3, 1)
    ppm = float(rng.uniform(-200, 200)) if rng.random() < 0.35 else 0.0
    delay = int(rng.uniform(0.005, 0.22) * 48000)
    late = np.concatenate([np.zeros(delay), clocked(up(back).astype(np.float32), ppm)])[:3 * LENGTH]
    if rng.random() < 0.06:
        jump, at = int(rng.uniform(0.005, 0.05) * 48000), int(rng.uniform(8, 24) * 48000)
        late[at:] = np.concatenate([np.zeros(jump), late])[at:3 * LENGTH]
    gain = up(gain)
    voice = up(here) * gain
    kept = voice + up(around) * gain
    microphone = np.clip(kept + late * gain, -1, 1)
    facts = {"seed": seed, "reverberation": room.reverberation, "ratio": ratio, "ppm": ppm, "echo": echo_level}
    return np.stack([np.clip(up(reference), -1, 1), microphone, kept, voice], 1).astype(np.float32), facts
