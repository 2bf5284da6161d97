"""The network in PyTorch, and how wrong it is."""

import torch
from torch import nn

from features import BANDS, FEATURES

HIDDEN = 96
OUTPUTS = BANDS + 1


class Mask(nn.Module):
    """A dense layer, a recurrent one, a dense one: gains by band, and the logit of "somebody here talks"."""

    def __init__(self):
        super().__init__()
        self.entry = nn.Linear(FEATURES, HIDDEN)
        self.memory = nn.GRU(HIDDEN, HIDDEN, batch_first=True)
        self.exit = nn.Linear(HIDDEN, OUTPUTS)

    def forward(self, seen, state=None):
        between, state = self.memory(torch.tanh(self.entry(seen)), state)
        out = self.exit(between)
        return torch.sigmoid(out[..., :BANDS]), out[..., BANDS], state


def energies(seen):
    """Of the linear output by band, from its levels."""
    return torch.exp2(8 * seen[..., :BANDS] - 24)


def strong(seen, target, voice):
    """Frames of somebody who talks that are not more than 6 dB softer than is usual for the scene."""
    power = voice * (target ** 2 * energies(seen)).sum(-1)
    loud = power > 0.01 * power.amax(-1, keepdim=True)
    usual = (power * loud).sum(-1, keepdim=True) / loud.sum(-1, keepdim=True).clamp_min(1)
    return ((power > usual / 4) & (power > 0)).float()


def loss(gains, logit, seen, target, voice, strength):
    """Of gains: of their roots the square, twice where a voice would lose, a little of their logarithms, and by how much
    a strong frame comes out softer than by 5 dB. Of the voice: cross entropy, twice where it is strong. Each by frame,
    so that the caller chooses which count."""
    difference = gains.clamp_min(1e-6).sqrt() - target.sqrt()
    weight = 1 + ((difference < 0) * voice[..., None])
    squared = (weight * difference ** 2).mean(-1)
    logarithmic = ((gains + 0.01).log10() - (target + 0.01).log10()).pow(2).mean(-1)
    power = energies(seen)
    wanted, made = ((each ** 2 * power).sum(-1) for each in (target, gains))
    softer = strength * ((wanted + 1e-12).log10() - (made + 1e-12).log10() - 0.5).clamp_min(0)
    entropy = nn.functional.binary_cross_entropy_with_logits(logit, voice, reduction="none")
    return 4 * squared + 0.3 * logarithmic + 0.5 * softer + 0.25 * (1 + strength) * entropy
