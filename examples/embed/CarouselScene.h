#pragma once

class SoSeparator;

/// A turning platform with horses that go up and down. Not referenced yet.
SoSeparator* makeCarousel(int horses);
