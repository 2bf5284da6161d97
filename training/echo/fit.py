"""Trains the mask on what `collect` has made."""

import time
from pathlib import Path

import numpy as np
import torch

from features import BANDS
from network import Mask, loss, strong

CHUNK = 300   # Frames that are learned from at a time...
SETTLING = 40 # ...of which the first do not count.
BATCH = 64
SHIFT = 2.5   # Levels are shifted together by up to so much (60 dB)...
COLOUR = 0.15 # ...and in each part of the spectrum by so much more (3.6 dB), as microphones differ.


def read(folder: Path, kind: str) -> tuple:
    """Features, gains and voices of all scenes of a kind, and where these are strong, scene by scene."""
    files = sorted(folder.glob(f"{kind}-*.npz"))
    parts = [np.load(file) for file in files]
    arrays = [torch.from_numpy(np.stack([part[name] for part in parts])) for name in ("features", "gains", "voice")]
    strength = torch.stack([strong(*(one.float() for one in scene)) for scene in zip(*arrays)])
    return *arrays, strength


def shifts(rng: np.random.Generator) -> torch.Tensor:
    """For each piece of a batch by how much its levels are shifted, by band."""
    whole = rng.uniform(-SHIFT / 2, SHIFT / 2, (BATCH, 1))
    points = rng.normal(0, COLOUR, (BATCH, 5))
    colours = np.stack([np.interp(np.linspace(0, 4, BANDS), np.arange(5), each) for each in points])
    return torch.from_numpy((whole + colours)[:, None, :].astype(np.float32))


def judged(mask: Mask, data: tuple) -> float:
    seen, *wanted = (each.float() for each in data)
    with torch.no_grad():
        gains, logit, _ = mask(seen)
        return float(loss(gains, logit, seen, *wanted)[:, SETTLING:].mean())


def fit(folder: Path, epochs: int, seed: int) -> dict:
    """The state of the network that was best on the scenes held out, as arrays."""
    torch.manual_seed(seed)
    torch.set_num_threads(1)  # However many there are, the sums are the same.
    rng = np.random.default_rng(seed)
    data, held = read(folder, "training"), read(folder, "held")
    seen = data[0]
    scenes, frames = seen.shape[:2]
    mask = Mask()
    print(f"{scenes} scenes, {sum(p.numel() for p in mask.parameters())} weights", flush=True)
    optimiser = torch.optim.Adam(mask.parameters(), 2e-3)
    begun, best, kept = time.monotonic(), float("inf"), {}
    for epoch in range(1, epochs + 1):
        share = (epoch - 1) / epochs
        for group in optimiser.param_groups:
            group["lr"] = 2e-3 * 0.5 * (1 + np.cos(np.pi * share)) + 2e-5
        # Every scene once, cut at random places.
        pieces = [(scene, start) for scene in range(scenes)
                  for start in range(int(rng.integers(CHUNK)), frames - CHUNK, CHUNK - SETTLING)]
        rng.shuffle(pieces)
        total = 0.0
        for at in range(0, len(pieces) - BATCH + 1, BATCH):
            cut = lambda whole: torch.stack([whole[scene, start:start + CHUNK] for scene, start in pieces[at:at + BATCH]]).float()
            x, *wanted = (cut(whole) for whole in data)
            x[..., :4 * BANDS] += shifts(rng).repeat(1, 1, 4)
            gains, logit, _ = mask(x)
            wrong = loss(gains, logit, x, *wanted)[:, SETTLING:].mean()
            optimiser.zero_grad()
            wrong.backward()
            torch.nn.utils.clip_grad_norm_(mask.parameters(), 1.0)
            optimiser.step()
            total += float(wrong)
        now = judged(mask, held)
        if now < best:
            best = now
            kept = {name: value.numpy().copy() for name, value in mask.state_dict().items()}
            np.savez(folder / "best.npz", **kept)
        print(f"epoch {epoch}, {(time.monotonic() - begun) / 60:.1f} min: {total / max(len(pieces) // BATCH, 1):.4f}, "
              f"held out {now:.4f}", flush=True)
    print(f"best held out {best:.4f}")
    return kept
