#!/usr/bin/env perl
# Writes letter_case_table.inc: the code units of the Basic Multilingual Plane that fold to another one, as ranges
# {first, last, stride, distance}. Folding is the simple lower-case mapping of the simple upper-case mapping in
# UnicodeData.txt, in the version of Perl's Unicode::UCD module (Unicode 14 with Perl 5.36).
#
#     perl platform/make_letter_case_table.pl > platform/letter_case_table.inc
use strict;
use warnings;
use Unicode::UCD qw(charinfo);

sub mapped {
    my ($unit, $field) = @_;
    my $info = charinfo($unit);
    return $unit unless $info && $info->{$field} ne '';
    my $to = hex($info->{$field});
    return $to < 0x10000 ? $to : $unit;
}

my @folded = map { $_ >= 0xD800 && $_ <= 0xDFFF ? $_ : mapped(mapped($_, 'upper'), 'lower') } 0 .. 0xFFFF;

my $unit = 0;
while ($unit <= 0xFFFF) {
    my $distance = $folded[$unit] - $unit;
    if ($distance == 0) { $unit++; next; }
    my ($last, $stride) = ($unit, 1);
    for my $tried (1, 2) {
        my $end = $unit;
        $end += $tried
          while $end + $tried <= 0xFFFF
          && $folded[$end + $tried] - ($end + $tried) == $distance
          && ($tried == 1 || $folded[$end + 1] == $end + 1);
        ($last, $stride) = ($end, $tried) if $end > $last;
    }
    printf "    {0x%04X, 0x%04X, %d, %d},\n", $unit, $last, $stride, $distance;
    $unit = $last + 1;
}
